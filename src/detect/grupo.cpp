#include "detect/grupo.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

#include "detect/escolha.h"
#include "detect/regioes.h"

namespace {

// A byte less half of the range of bytes is at most 128, and 16 bits hold sums up to 32767.
constexpr int maximoDePixelsCurtos = 32767 / 128;
// Each part costs terms of its own; with more of them 32-bit sums are faster.
constexpr std::size_t maximoDePartes = 10;

int alcance(const std::vector<TERMO>& termos) {
  int maior = 0;
  for (const TERMO& t : termos) maior = std::max({maior, std::abs(t.dl), std::abs(t.dc)});
  return maior;
}

PARTE parteDe(const REGIAO& tudo, const REGIAO& nucleo, const std::vector<ESCADA>& escadas) {
  return {termosDosLados(ladosDaRegiao(tudo), escadas),
          termosDosLados(ladosDaRegiao(nucleo), escadas)};
}

// The kernel in parts of as many rows each as 16 bits can hold the sums of.
std::vector<PARTE> partesCurtas(const REGIOES& r, const std::vector<ESCADA>& escadas) {
  const std::vector<cv::Range> linhas = divideLinhas(r, maximoDePixelsCurtos);
  std::vector<PARTE> partes;
  if (linhas.size() > maximoDePartes) return partes;
  for (const cv::Range& x : linhas) {
    partes.push_back(parteDe(soLinhas(r.tudo, x), soLinhas(r.nucleo, x), escadas));
  }
  return partes;
}

}  // namespace

GRUPO preparaGrupo(const std::vector<MASCARA>& kernels, int primeiro, int ultimo) {
  GRUPO grupo;
  std::vector<LADO> lados;
  std::vector<REGIOES> regioes;
  for (int k = primeiro; k <= ultimo; ++k) {
    const MASCARA& m = kernels[static_cast<std::size_t>(k)];
    const std::optional<REGIOES> r = regioesDoKernel(m.kernel);
    if (!r) {
      grupo.serve = false;
      return grupo;
    }
    for (const REGIAO& regiao : {r->tudo, r->nucleo}) {
      const std::vector<LADO> estes = ladosDaRegiao(regiao);
      lados.insert(lados.end(), estes.begin(), estes.end());
    }
    regioes.push_back(*r);
    grupo.kernels.push_back({k, m.sPir, {}, {}, r->nAnel, r->nNucleo});
  }
  const std::vector<ESCADA> escadas = escolheEscadas(lados);
  grupo.planos = planosDasEscadas(escadas);
  for (std::size_t i = 0; i < grupo.kernels.size(); ++i) {
    ESQUEMA& e = grupo.kernels[i];
    e.inteira = parteDe(regioes[i].tudo, regioes[i].nucleo, escadas);
    e.curtas = partesCurtas(regioes[i], escadas);
    for (const PARTE& p : e.curtas) {
      grupo.margem = std::max({grupo.margem, alcance(p.tudo), alcance(p.nucleo)});
    }
    grupo.margem = std::max({grupo.margem, alcance(e.inteira.tudo), alcance(e.inteira.nucleo)});
  }
  return grupo;
}
