#include "refine/tracos/companhia.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>

#include "refine/contorno/numeros.h"

namespace refine {

namespace {

using VALORES = std::vector<double>;

// The value below which `parte` of the weight lies.
double quantilPesado(const VALORES& x, const VALORES& peso, double parte) {
  std::vector<std::size_t> ordem(x.size());
  std::iota(ordem.begin(), ordem.end(), std::size_t{0});
  std::sort(ordem.begin(), ordem.end(),
            [&](std::size_t a, std::size_t b) { return x[a] != x[b] ? x[a] < x[b] : a < b; });
  const double total = std::accumulate(peso.begin(), peso.end(), 0.0);
  double soma = 0;
  for (const std::size_t k : ordem) {
    soma += peso[k];
    if (soma >= total * parte) return x[k];
  }
  return x[ordem.back()];
}

double medianaPesada(const VALORES& x, const VALORES& peso) {
  return quantilPesado(x, peso, 0.5);
}

// What is compared, the least distance that counts as one, and whether its sign counts too.
struct COMPARADO {
  std::function<double(const EXAME&)> valor;
  double folga;
  bool comSinal;
};

const std::vector<COMPARADO>& comparados() {
  const auto traco = [](TRACO t) { return [t](const EXAME& e) { return double{e.tracos[t]}; }; };
  static const std::vector<COMPARADO> lista = {
      {traco(logPerimetro), 0.15, true},
      {traco(logContraste), 0.15, true},
      {traco(bordaForte), 0.06, true},
      {traco(separacao), 0.08, true},
      {traco(logAlongamento), 0.15, false},
      {traco(texturaDentro), 0.05, true},
      {traco(nitidez), 0.2, true},
      {traco(asperaRelativa), 0.02, true},
      {traco(anelClaro), 0.05, true},
      {traco(alinhada), 0.02, true},
      {[](const EXAME& e) { return double{e.dentro}; }, 0.02, true},
      {[](const EXAME& e) { return double{e.fora}; }, 0.02, true}};
  return lista;
}

// (x - median) / (1.5 x median distance + folga).
VALORES relativos(const VALORES& x, const VALORES& peso, double folga) {
  const double meio = medianaPesada(x, peso);
  VALORES longe(x.size());
  for (std::size_t k = 0; k < x.size(); ++k) longe[k] = std::fabs(x[k] - meio);
  const double escala = 1.5 * medianaPesada(longe, peso) + folga;
  VALORES r(x.size());
  for (std::size_t k = 0; k < x.size(); ++k) r[k] = (x[k] - meio) / escala;
  return r;
}

}  // namespace

std::vector<COMPANHIA> comparaTodos(const std::vector<EXAME>& exames, const VALORES& notas,
                                    const VALORES& probabilidades) {
  const std::size_t n = exames.size();
  std::vector<COMPANHIA> v(n);
  if (n == 0) return v;
  VALORES peso(n);
  for (std::size_t k = 0; k < n; ++k) {
    peso[k] = probabilidades[k] * exponencial(exames[k].tracos[logPerimetro]) + 1e-9;
  }
  const double quantos = std::accumulate(probabilidades.begin(), probabilidades.end(), 0.0);
  const double pesoDaCompanhia = quantos / (quantos + 8);
  std::size_t coluna = 0;
  const auto poe = [&](auto valor) {
    for (std::size_t k = 0; k < n; ++k) v[k][coluna] = static_cast<float>(valor(k));
    ++coluna;
  };
  const double notaDoMeio = medianaPesada(notas, peso);
  poe([&](std::size_t k) { return notas[k]; });
  poe([&](std::size_t k) { return std::min(notas[k], 0.0) * std::min(notas[k], 0.0); });
  poe([&](std::size_t k) { return std::max(notas[k] - 2, 0.0); });
  poe([&](std::size_t) { return notaDoMeio; });
  for (const COMPARADO& c : comparados()) {
    VALORES x(n);
    for (std::size_t k = 0; k < n; ++k) x[k] = c.valor(exames[k]);
    const VALORES r = relativos(x, peso, c.folga);
    poe([&](std::size_t k) { return pesoDaCompanhia * std::min(std::fabs(r[k]), 4.0); });
    if (c.comSinal)
      poe([&](std::size_t k) { return pesoDaCompanhia * std::clamp(r[k], -4.0, 4.0); });
  }
  const VALORES r = relativos(notas, peso, 0.3);
  poe([&](std::size_t k) { return pesoDaCompanhia * std::clamp(r[k], -5.0, 5.0); });
  for (const double parte : {0.25, 0.75}) {
    const double q = quantilPesado(notas, probabilidades, parte);
    poe([&](std::size_t) { return q; });
  }
  return v;
}

}  // namespace refine
