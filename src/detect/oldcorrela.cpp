#include "detect/oldcorrela.h"

#include <cstdio>
#include <string>
#include <vector>

#include "detect/correlacao.h"
#include "detect/maximos.h"
#include "detect/maxlocal.h"
#include "detect/ordenacao.h"
#include "detect/piramide.h"
#include "kernels/lekernels.h"
#include "pim/erro.h"
#include "pim/imagem.h"
#include "pim/texto.h"

namespace {

constexpr int semLimite = 0;  // of pyramid levels

void exigeArgumentosDaVelha(int argc) {
  if (argc == 4 || argc == 5) return;
  std::puts("OldCorrela imagem.pgm kernel.cfg imagem.ho1 [minCorr]");
  std::puts("  minCorr: default=0.001");
  pim::erro("Erro: Numero de argumentos invalido");
}

cv::Mat_<float> leEmReais(const std::string& nome) {
  cv::Mat_<unsigned char> cinza;
  pim::le(cinza, nome);
  return detect::emReais(cinza);
}

}  // namespace

void OldCorrela(int argc, char** argv) {
  exigeArgumentosDaVelha(argc);
  double minCorr = 0.001;
  if (argc == 5) pim::convArg(minCorr, argv[4]);

  std::puts("Lendo imagem.pgm e construindo piramide...");
  PIRAMIDE piramide;
  constroiPiramide(piramide, leEmReais(argv[1]), semLimite);

  std::puts("Lendo kernel.cfg e construindo kernels...");
  std::vector<MASCARA> kernels;
  leKernels(argv[2], kernels, IMAGENS::nenhuma);
  std::printf("Numero de kernels=%u\n", static_cast<unsigned>(kernels.size()));

  std::puts("Calculando correlacoes em piramide...");
  MELHORCORREL melhorCorrel;
  MELHORKERNEL melhorKernel;
  correlaGrupo(piramide, kernels, 0, static_cast<int>(kernels.size()) - 1, melhorCorrel,
               melhorKernel);
  pim::imp(melhorCorrel[0], "oldcorrela.img");

  std::puts("Procurando maximos locais em cada andar da piramide...");
  std::vector<MAXLOCAL> maximos;
  findMaxLocal(melhorCorrel, melhorKernel, kernels, maximos, minCorr);
  std::printf("Numero de maximos locais original=%u\n", static_cast<unsigned>(maximos.size()));

  std::puts("Ordenando os maximos locais em ordem decrescente de correlacao...");
  ordena(maximos, 0, static_cast<int>(maximos.size()) - 1);

  std::puts("Imprimindo os maximos locais");
  impMaxLocais(maximos, argv[3]);
}
