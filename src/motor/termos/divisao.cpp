#include "motor/termos/divisao.h"

#include <cstddef>

namespace motor {
namespace {

// Two bytes, the one that enters a stretch and the one that leaves it, differ by 255 at most.
constexpr int maximoDeTrechos = 32767 / 255;

// Each part costs terms of its own. With more parts of rows those of columns are faster, and with
// more of columns 32 bits are, or about as fast.
constexpr std::size_t maximoDePartesDeLinhas = 5;
constexpr std::size_t maximoDePartesDeColunas = 8;

// Divides every kernel in the ranges that `divide` gives, which `so` takes out of a region; false,
// and nothing done, when some kernel would have more than `maximo` parts.
template <class DIVIDE, class SO>
bool divideTodos(std::vector<CORTADO>& kernels, std::size_t maximo, DIVIDE divide, SO so) {
  std::vector<std::vector<cv::Range>> divisoes;
  for (const CORTADO& k : kernels) {
    divisoes.push_back(divide(k.regioes()));
    if (divisoes.back().empty() || divisoes.back().size() > maximo) return false;
  }
  for (std::size_t i = 0; i < kernels.size(); ++i) {
    const REGIOES r = kernels[i].regioes();
    for (const cv::Range& x : divisoes[i]) {
      kernels[i].partes.push_back(ladosDe(so(r.tudo, x), so(r.nucleo, x)));
    }
  }
  return true;
}

}  // namespace

LADOS ladosDe(const REGIAO& tudo, const REGIAO& nucleo) {
  return {ladosDaRegiao(tudo), ladosDaRegiao(nucleo)};
}

DIVISAO divide(std::vector<CORTADO>& kernels) {
  const auto linhas = [](const REGIOES& r) { return divideLinhas(r, maximoDePixels); };
  if (divideTodos(kernels, maximoDePartesDeLinhas, linhas, soLinhas)) return DIVISAO::linhas;
  const auto colunas = [](const REGIOES& r) { return divideColunas(r, maximoDeTrechos); };
  if (divideTodos(kernels, maximoDePartesDeColunas, colunas, soColunas)) return DIVISAO::colunas;
  return DIVISAO::nenhuma;
}

}  // namespace motor
