#include "detect/procura.h"

#include <utility>

#include "detect/correlacao.h"
#include "detect/maximos.h"
#include "detect/ordenacao.h"
#include "detect/piramide.h"
#include "kernels/grupos.h"

namespace detect {
namespace {

constexpr int maximoDeNiveis = 4;
constexpr int maxDist = 2;

// Tells the caller of a search how far it has come.
struct RELATOR {
  const AVISO& aviso;
  ANDAMENTO andamento;

  void diz(ETAPA etapa) {
    andamento.etapa = etapa;
    if (aviso && !aviso(andamento)) throw INTERROMPIDA{};
  }
  pim::PAUSA pausa() {
    if (!aviso) return {};
    return [this] { diz(ETAPA::trecho); };
  }
};

std::vector<MAXLOCAL> procuraPorGrupos(const cv::Mat_<float>& imagem,
                                       const std::vector<MASCARA>& conjunto, double minCorr,
                                       RELATOR& relator) {
  ANDAMENTO& a = relator.andamento;
  const std::vector<kernels::GRUPO> grupos = kernels::grupos(conjunto);
  a.nGrupos = grupos.size();
  PIRAMIDE piramide;
  constroiPiramide(piramide, imagem, maximoDeNiveis);
  const NIVEIS niveis = preparaNiveis(piramide);
  std::vector<MAXLOCAL> todos;
  MELHORCORREL melhorCorrel;
  MELHORKERNEL melhorKernel;
  for (const auto& [primeiro, ultimo] : grupos) {
    a.primeiro = primeiro;
    a.ultimo = ultimo;
    relator.diz(ETAPA::grupo);
    correlaGrupo(niveis, conjunto, primeiro, ultimo, melhorCorrel, melhorKernel, relator.pausa());
    std::vector<MAXLOCAL> doGrupo;
    findMaxLocal(melhorCorrel, melhorKernel, conjunto, doGrupo, minCorr);
    acrescenta(todos, doGrupo);
    ++a.grupo;
    a.nMaximos = todos.size();
  }
  return todos;
}

}  // namespace

std::vector<MAXLOCAL> procura(cv::Mat_<unsigned char> imagem, const std::vector<MASCARA>& kernels,
                              double minCorr, const AVISO& aviso) {
  const cv::Mat_<float> reais = emReais(imagem);
  imagem.release();
  return procura(reais, kernels, minCorr, aviso);
}

std::vector<MAXLOCAL> procura(const cv::Mat_<float>& imagem, const std::vector<MASCARA>& kernels,
                              double minCorr, const AVISO& aviso) {
  if (imagem.empty()) return {};
  RELATOR relator{aviso, {}};
  std::vector<MAXLOCAL> todos = procuraPorGrupos(imagem, kernels, minCorr, relator);
  relator.diz(ETAPA::ordenacao);
  if (todos.empty()) return {};
  ordena(todos, 0, static_cast<int>(todos.size()) - 1, relator.pausa());
  relator.diz(ETAPA::eliminacao);
  std::vector<MAXLOCAL> mantidos;
  eliminaProximo(todos, mantidos, maxDist, relator.pausa());
  return mantidos;
}

}  // namespace detect
