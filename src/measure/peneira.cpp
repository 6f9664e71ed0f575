#include "measure/peneira.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <opencv2/core.hpp>

#include "pim/erro.h"

namespace measure {

void confereAberturas(const std::vector<double>& aberturas) {
  double anterior = 0;
  for (const double a : aberturas) {
    if (!std::isfinite(a) || a <= anterior) {
      pim::erro("Erro: Aberturas de peneira devem ser crescentes e maiores que zero: ",
                cv::format("%g", a));
    }
    anterior = a;
  }
}

std::vector<PENEIRA> peneira(const CURVA& c, const std::vector<double>& aberturas) {
  confereAberturas(aberturas);
  if (aberturas.empty()) return {};
  std::vector<PENEIRA> classes(aberturas.size() + 1);
  std::vector<double> pesos(classes.size(), 0.0);
  for (std::size_t k = 0; k < aberturas.size(); ++k) {
    classes[k].ate = aberturas[k];
    classes[k + 1].de = aberturas[k];
  }
  std::size_t k = 0;
  for (std::size_t i = 0; i < c.tamanho.size(); ++i) {
    while (c.tamanho[i] >= classes[k].ate) ++k;
    ++classes[k].graos;
    pesos[k] += c.peso[i];
  }
  // Summed class by class, as below: what passes a sieve that retains nothing is exactly 1.
  const double total = std::accumulate(pesos.begin(), pesos.end(), 0.0);
  double abaixo = 0;
  for (k = 0; total > 0 && k < classes.size(); ++k) {
    classes[k].retida = pesos[k] / total;
    classes[k].passante = std::min(abaixo / total, 1.0);
    abaixo += pesos[k];
  }
  return classes;
}

}  // namespace measure
