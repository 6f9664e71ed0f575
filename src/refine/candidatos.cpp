#include "refine/candidatos.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <unordered_map>
#include <unordered_set>

#include "refine/ajuste/ajuste.h"
#include "refine/paralelo.h"
#include "refine/tracos/esboco.h"

namespace refine {

namespace {

// A detection on its way to a candidate; d1 is 0 once it is lost.
struct ESBOCO {
  FIGURA figura;
  float correl = 0;
  float nota = -1;
  std::uint64_t chave = 0;
};

constexpr MODO grosso{16, 3, 1, 1, 0.1};
constexpr double igualdade = 0.08;   // shapes nearer than this, by their size, are one
constexpr double melhorParte = 0.5;  // of a picture's coarse fits go on to the fine one
constexpr int locais = 2;            // and at least so many of every neighbourhood
constexpr double meiasOitavas = 2;   // classes of size of a neighbourhood, an octave
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
void tiraIguais(std::vector<ESBOCO>& v) {
  std::unordered_set<std::uint64_t> vistas;
  vistas.reserve(v.size());
  std::erase_if(
      v, [&](const ESBOCO& c) { return !(c.figura.d1 > 0) || !vistas.insert(c.chave).second; });
}

// The place and size of a shape, coarsely: cells as large as its lesser size, half octaves of it.
std::uint64_t vizinhanca(const FIGURA& f) {
  const double menor = menorMetade(f);
  const double tom = std::floor(logaritmo(menor) * (meiasOitavas / 0.6931471805599453));
  const double lado = 2 * exponencial((tom + 1) * (0.6931471805599453 / meiasOitavas));
  std::uint64_t h = 0;
  for (const double x : {tom, std::floor(f.l / lado), std::floor(f.c / lado)}) {
    h ^= static_cast<std::uint64_t>(static_cast<std::int64_t>(x));
    h *= 0x9E3779B97F4A7C15U;
    h ^= h >> 29U;
  }
  return h;
}

// Keeps the best part of the picture, and the best few of every neighbourhood: where all look
// poor, as on faint grains, some go on all the same.
void peneira(std::vector<ESBOCO>& v) {
  std::vector<std::uint32_t> ordem(v.size());
  std::iota(ordem.begin(), ordem.end(), 0U);
  std::sort(ordem.begin(), ordem.end(), [&](std::uint32_t a, std::uint32_t b) {
    return v[a].nota != v[b].nota ? v[a].nota > v[b].nota : a < b;
  });
  const auto todas = static_cast<std::size_t>(melhorParte * static_cast<double>(v.size()));
  std::unordered_map<std::uint64_t, int> quantas;
  std::vector<bool> fica(v.size());
  for (std::size_t i = 0; i < ordem.size(); ++i) {
    const int daqui = ++quantas[vizinhanca(v[ordem[i]].figura)];
    fica[ordem[i]] = i < todas || daqui <= locais;
  }
  std::size_t n = 0;
  for (std::size_t k = 0; k < v.size(); ++k) {
    if (fica[k]) v[n++] = v[k];
  }
  v.resize(n);
}

}  // namespace

std::optional<ESBOCADOS> ajustaGrosso(const CAMPO& campo, FIGURA& f, float correl, BANCADA& b) {
  const ANDAR& andar = campo.andarPara(menorMetade(f));
  FIGURA g = noAndar(f, andar.nivel);
  if (!ajusta(andar, g, grosso, b)) return std::nullopt;
  f = naFoto(g, andar.nivel);
  return esboca(andar, g, correl, b);
}

std::vector<CANDIDATO> ajustaTodos(const CAMPO& campo, const std::vector<DETECCAO>& lista,
                                   const MODO_DE_AJUSTAR& modo, const PESOS& pesos) {
  std::vector<ESBOCO> v(lista.size());
  paraTodos<BANCADA>(v.size(), modo.fios, modo.pausa, [&](std::size_t k, BANCADA& b) {
    FIGURA f = lista[k].figura;
    v[k].correl = lista[k].correl;
    const std::optional<ESBOCADOS> visto = ajustaGrosso(campo, f, v[k].correl, b);
    if (!visto) return;
    v[k].figura = f;
    v[k].chave = chave(v[k].figura, igualdade);
    v[k].nota = static_cast<float>(pesos.esboco.de(*visto));
  });
  tiraIguais(v);
  if (!modo.todos) peneira(v);
  paraTodos<BANCADA>(v.size(), modo.fios, modo.pausa, [&](std::size_t k, BANCADA& b) {
    if (modo.elipses && v[k].figura.forma == 'c') v[k].figura.forma = 'e';
    if (modo.retangulos && v[k].figura.forma == 'q') v[k].figura.forma = 'r';
    if (!ajustaNaFoto(campo, fino, v[k].figura, b)) {
      v[k].figura = {};
      return;
    }
    v[k].chave = chave(v[k].figura, igualdade);
  });
  tiraIguais(v);
  std::vector<CANDIDATO> examinados(v.size());
  paraTodos<BANCADA>(v.size(), modo.fios, modo.pausa, [&](std::size_t k, BANCADA& b) {
    const FIGURA& f = v[k].figura;
    const ANDAR& andar = campo.andarPara(menorMetade(f));
    examinados[k] = {f, v[k].correl, examina(andar, noAndar(f, andar.nivel), v[k].correl, {}, b)};
  });
  return examinados;
}

}  // namespace refine
