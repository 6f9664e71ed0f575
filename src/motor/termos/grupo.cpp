#include "motor/termos/grupo.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

#include "motor/termos/escolha.h"

namespace motor {
namespace {

// Pixels of the regions that are kept while a group is cut up, two bytes each; beyond, kernels are
// drawn again instead. All that most groups have.
constexpr std::size_t maximoGuardado = std::size_t{1} << 26U;

// The sides that the planes are chosen for. Cuts between rows add next to none; those between
// columns are long.
std::vector<LADO> ladosDoGrupo(const std::vector<CORTADO>& kernels, DIVISAO divisao) {
  std::vector<LADO> lados;
  const auto junta = [&](const LADOS& x) {
    lados.insert(lados.end(), x.tudo.begin(), x.tudo.end());
    lados.insert(lados.end(), x.nucleo.begin(), x.nucleo.end());
  };
  for (const CORTADO& k : kernels) {
    if (divisao == DIVISAO::colunas) {
      std::for_each(k.partes.begin(), k.partes.end(), junta);
    } else {
      junta(k.inteiro);
    }
  }
  return lados;
}

// The terms of a part; `margem` grows to how far they reach.
PARTE escreve(const LADOS& lados, const std::vector<ESCADA>& escadas, int& margem) {
  PARTE p{termosDosLados(lados.tudo, escadas), termosDosLados(lados.nucleo, escadas)};
  for (const std::vector<TERMO>& termos : {p.tudo, p.nucleo}) {
    for (const TERMO& t : termos) margem = std::max({margem, std::abs(t.dl), std::abs(t.dc)});
  }
  return p;
}

// A region in pieces; `margem` grows to how far they reach.
std::vector<PEDACO> pedacos(const REGIAO& regiao, int& margem) {
  std::vector<PEDACO> lista = pedacosDaRegiao(regiao, maximoDePixels);
  for (const PEDACO& p : lista) {
    margem = std::max({margem, std::abs(p.linha), std::abs(p.antes), std::abs(p.ultima)});
  }
  return lista;
}

// The kernels of `grupo`, cut up, as terms.
void escreveTodos(std::vector<CORTADO>& cortados, const pim::PAUSA& pausa, GRUPO& grupo) {
  grupo.divisao = divide(cortados);
  const std::vector<ESCADA> escadas = escolheEscadas(ladosDoGrupo(cortados, grupo.divisao), pausa);
  grupo.planos = planosDasEscadas(escadas);
  for (std::size_t i = 0; i < cortados.size(); ++i) {
    if (pausa) pausa();
    ESQUEMA& e = grupo.kernels[i];
    e.inteira = escreve(cortados[i].inteiro, escadas, grupo.margem);
    for (const LADOS& x : cortados[i].partes) {
      e.partes.push_back(escreve(x, escadas, grupo.margem));
    }
    if (grupo.divisao != DIVISAO::colunas) continue;
    const REGIOES regioes = cortados[i].regioes();
    e.pedacosDoTudo = pedacos(regioes.tudo, grupo.margem);
    e.pedacosDoNucleo = pedacos(regioes.nucleo, grupo.margem);
  }
}

}  // namespace

GRUPO esquematiza(const std::vector<MASCARA>& kernels, int primeiro, int ultimo,
                  const pim::PAUSA& pausa) {
  GRUPO grupo;
  std::vector<CORTADO> cortados;
  std::size_t guardados = 0;
  for (int k = primeiro; k <= ultimo; ++k) {
    if (pausa) pausa();
    const MASCARA& m = kernels[static_cast<std::size_t>(k)];
    grupo.kernels.push_back({k, m.sPir, m, 0, 0, {}, {}, {}, {}});
    std::optional<REGIOES> r;
    if (grupo.serve) r = regioesDoKernel(kernels::imagemDoKernel(m));
    grupo.serve = r.has_value();
    if (!r) continue;
    grupo.kernels.back().nAnel = r->nAnel;
    grupo.kernels.back().nNucleo = r->nNucleo;
    cortados.push_back({&m, {}, ladosDe(r->tudo, r->nucleo), {}});
    guardados += r->tudo.total();
    if (guardados <= maximoGuardado) cortados.back().guardadas = r;
  }
  if (grupo.serve) escreveTodos(cortados, pausa, grupo);
  return grupo;
}

}  // namespace motor
