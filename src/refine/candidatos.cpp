#include "refine/candidatos.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <unordered_set>

#include "refine/ajuste.h"
#include "refine/paralelo.h"

namespace refine {

namespace {

constexpr MODO grosso{16, 3, 1, 1, 0.1};
constexpr double igualdade = 0.08;
constexpr MODO fino{32, 5, 0.5, 0.6, 0.02};

// Shapes within `parte` of their lesser half size of each other mostly have the same key.
std::uint64_t chave(const FIGURA& f, double parte) {
  const FIGURA g = normal(f);
  const double menor = menorMetade(g);
  const double tom = std::floor(logaritmo(menor) / parte + 0.5);
  const double cela = std::max(0.5, parte * exponencial(tom * parte));
  std::uint64_t h = static_cast<unsigned char>(f.forma);
  const auto poe = [&](double x) {
    h ^= static_cast<std::uint64_t>(static_cast<std::int64_t>(std::floor(x + 0.5)));
    h *= 0x9E3779B97F4A7C15U;
    h ^= h >> 29U;
  };
  poe(tom);
  poe(g.l / cela);
  poe(g.c / cela);
  if (f.forma == 'r' || f.forma == 'e') poe(logaritmo(g.d1 / 2) / parte);
  const double a = alongamento(g);
  if (f.forma != 'c' && (f.forma == 'q' || a > 1.1)) {
    // Steps of the angle that move the ends by about a cell.
    const double volta = f.forma == 'q' ? 90 : 180;
    const double passos = std::max(4.0, std::floor(volta / 57.3 * g.d1 / 2 / cela + 0.5));
    poe(std::fmod(std::floor(g.ang / volta * passos + 0.5), passos));
  }
  return h;
}

// Fits in the reduction that suits the size; false when the shape got lost.
bool ajustaNaFoto(const CAMPO& campo, const MODO& modo, FIGURA& f, BANCADA& b) {
  const ANDAR& andar = campo.andarPara(menorMetade(f));
  FIGURA g = noAndar(f, andar.nivel);
  if (!ajusta(andar, g, modo, b)) return false;
  f = naFoto(g, andar.nivel);
  return true;
}

// Those of `v` that are not lost, one of each kind.
void tiraIguais(std::vector<CANDIDATO>& v) {
  std::unordered_set<std::uint64_t> vistas;
  std::erase_if(v, [&](const CANDIDATO& c) {
    return !(c.figura.d1 > 0) || !vistas.insert(chave(c.figura, igualdade)).second;
  });
}

}  // namespace

std::vector<CANDIDATO> ajustaTodos(const CAMPO& campo, const std::vector<DETECCAO>& lista,
                                   int fios) {
  std::vector<CANDIDATO> v(lista.size());
  paraTodos<BANCADA>(v.size(), fios, [&](std::size_t k, BANCADA& b) {
    FIGURA f = lista[k].figura;
    v[k].correl = lista[k].correl;
    if (ajustaNaFoto(campo, grosso, f, b)) v[k].figura = f;
  });
  tiraIguais(v);
  paraTodos<BANCADA>(v.size(), fios, [&](std::size_t k, BANCADA& b) {
    if (!ajustaNaFoto(campo, fino, v[k].figura, b)) v[k].figura = {};
  });
  tiraIguais(v);
  paraTodos<BANCADA>(v.size(), fios, [&](std::size_t k, BANCADA& b) {
    const ANDAR& andar = campo.andarPara(menorMetade(v[k].figura));
    v[k].exame = examina(andar, noAndar(v[k].figura, andar.nivel), v[k].correl, {}, b);
  });
  return v;
}

}  // namespace refine
