// `correla` and `filtra` in their plain form, for comparison: the same steps and the same results.
#include <cstdio>
#include <string>
#include <vector>

#include "detect/maximos.h"
#include "detect/ordenacao.h"
#include "detect/piramide.h"
#include "fim/fim.h"
#include "kernels/grupos.h"
#include "kernels/lekernels.h"
#include "pim/imagem.h"
#include "pim/texto.h"
#include "referencia/correlacao.h"
#include "referencia/filtro.h"
#include "referencia/proximos.h"

namespace {

// correla imagem kernel.cfg saida.ho1 minCorr
void correla(char** argv) {
  double minCorr = 0;
  pim::convArg(minCorr, argv[4]);
  cv::Mat_<unsigned char> imagem;
  pim::le(imagem, argv[1]);
  PIRAMIDE piramide;
  constroiPiramide(piramide, detect::emReais(imagem), 4);
  imagem.release();
  std::vector<MASCARA> kernels;
  leKernels(argv[2], kernels);
  std::vector<MAXLOCAL> todos;
  MELHORCORREL melhorCorrel;
  MELHORKERNEL melhorKernel;
  for (const auto& [primeiro, ultimo] : kernels::grupos(kernels)) {
    referencia::correlaGrupo(piramide, kernels, primeiro, ultimo, melhorCorrel, melhorKernel);
    findMaxLocal(melhorCorrel, melhorKernel, kernels, todos, minCorr);
  }
  referencia::ordena(todos, 0, static_cast<int>(todos.size()) - 1);
  std::vector<MAXLOCAL> mantidos;
  referencia::eliminaProximo(todos, mantidos, 2);
  impMaxLocais(mantidos, argv[3]);
}

// filtra imagem entrada.ho1 saida.ho2
void filtra(char** argv) {
  cv::Mat_<unsigned char> imagem;
  pim::le(imagem, argv[1]);
  std::vector<MAXLOCAL> v;
  leMaxLocais(v, argv[2]);
  std::vector<MAXLOCAL> mantidos;
  constexpr LIMIAR padrao = {0.1, 0.3};
  referencia::filtInter(v, mantidos, imagem.size(), {padrao, padrao, padrao, padrao});
  impMaxLocais(mantidos, argv[3]);
}

int simples(int argc, char** argv) {
  if (argc == 6 && std::string(argv[1]) == "correla") {
    correla(argv + 1);
  } else if (argc == 5 && std::string(argv[1]) == "filtra") {
    filtra(argv + 1);
  } else {
    std::puts("simples correla imagem kernel.cfg saida.ho1 minCorr");
    std::puts("simples filtra imagem entrada.ho1 saida.ho2");
    return 1;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  cv::setNumThreads(1);
  return fim::executa([&] { return simples(argc, argv); });
}
