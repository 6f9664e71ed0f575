#include "motor/termos/grupo.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

#include "motor/termos/escolha.h"

namespace motor {

namespace {

// A byte less half of the range of bytes is at most 128, and 16 bits hold sums up to 32767.
constexpr int maximoDePixels = 32767 / 128;
// From one row of the photograph to the next, the sum over a stretch of a column loses a byte and
// gains another.
constexpr int maximoDeTrechos = 32767 / 255;
// Each part costs terms of its own. With more parts of rows those of columns are faster, and with
// more of columns 32 bits, or about as fast.
constexpr std::size_t maximoDePartesDeLinhas = 5;
constexpr std::size_t maximoDePartesDeColunas = 8;

// Pixels of the regions that are kept while a group is cut up, two bytes each; beyond, kernels are
// drawn again instead. All that most groups have.
constexpr std::size_t maximoGuardado = std::size_t{1} << 26U;

// The sides of whole and core, of a kernel or of a part of it.
struct LADOS {
  std::vector<LADO> tudo;
  std::vector<LADO> nucleo;
};

// A kernel on its way to terms.
struct CORTADO {
  const MASCARA* mascara;
  std::optional<REGIOES> guardadas;  // as long as those of the group don't take too much
  LADOS inteiro;
  std::vector<LADOS> partes;

  REGIOES regioes() const {
    return guardadas ? *guardadas : regioesDoKernel(kernels::imagemDoKernel(*mascara)).value();
  }
};

LADOS ladosDe(const REGIAO& tudo, const REGIAO& nucleo) {
  return {ladosDaRegiao(tudo), ladosDaRegiao(nucleo)};
}

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

DIVISAO divide(std::vector<CORTADO>& kernels) {
  const auto linhas = [](const REGIOES& r) { return divideLinhas(r, maximoDePixels); };
  if (divideTodos(kernels, maximoDePartesDeLinhas, linhas, soLinhas)) return DIVISAO::linhas;
  const auto colunas = [](const REGIOES& r) { return divideColunas(r, maximoDeTrechos); };
  if (divideTodos(kernels, maximoDePartesDeColunas, colunas, soColunas)) return DIVISAO::colunas;
  return DIVISAO::nenhuma;
}

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
void escreveTodos(std::vector<CORTADO>& cortados, GRUPO& grupo) {
  grupo.divisao = divide(cortados);
  const std::vector<ESCADA> escadas = escolheEscadas(ladosDoGrupo(cortados, grupo.divisao));
  grupo.planos = planosDasEscadas(escadas);
  for (std::size_t i = 0; i < cortados.size(); ++i) {
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

GRUPO esquematiza(const std::vector<MASCARA>& kernels, int primeiro, int ultimo) {
  GRUPO grupo;
  std::vector<CORTADO> cortados;
  std::size_t guardados = 0;
  for (int k = primeiro; k <= ultimo; ++k) {
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
  if (grupo.serve) escreveTodos(cortados, grupo);
  return grupo;
}

}  // namespace motor
