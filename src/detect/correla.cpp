#include "detect/correla.h"

#include <cstdio>
#include <utility>
#include <vector>

#include "detect/maxlocal.h"
#include "detect/ordenacao.h"
#include "detect/procura.h"
#include "kernels/lekernels.h"
#include "pim/erro.h"
#include "pim/imagem.h"
#include "pim/texto.h"

namespace {

void exigeArgumentos(int argc) {
  if (argc == 4 || argc == 5) return;
  // The usage line offers maxDist, but a sixth element is refused: the distance is fixed.
  std::puts("Correla imagem.pgm kernel.cfg imagem.ho1 [minCorr] [maxDist]");
  std::puts("  maxLocal com correlacao<minCorr e' eliminado");
  std::puts("  um maxLocal com distancia<=maxDist de outro maxLocal e' eliminado");
  std::puts("  Default: minCorr=0.001 maxDist=2");
  pim::erro("Erro: Numero de argumentos invalido");
}

// Says what the search is about to do.
bool relata(const detect::ANDAMENTO& a) {
  switch (a.etapa) {
    case detect::ETAPA::grupo:
      std::printf("Aplicando filtro #%u-#%u\r", static_cast<unsigned>(a.primeiro),
                  static_cast<unsigned>(a.ultimo));
      std::fflush(stdout);
      break;
    case detect::ETAPA::trecho:
      break;
    case detect::ETAPA::ordenacao:
      std::printf("\nOrdenando os %u maximos locais em ordem decrescente de correlacao...\n",
                  static_cast<unsigned>(a.nMaximos));
      break;
    case detect::ETAPA::eliminacao:
      std::puts("Eliminando os maximos locais muito proximos...");
  }
  return true;
}

}  // namespace

void Correla(int argc, char** argv) {
  exigeArgumentos(argc);
  double minCorr = detect::minCorrPadrao;
  if (argc == 5) pim::convArg(minCorr, argv[4]);

  std::printf("Lendo %s e construindo piramide...\n", argv[1]);
  cv::Mat_<unsigned char> imagem;
  pim::le(imagem, argv[1]);

  std::printf("Lendo %s e construindo kernels...\n", argv[2]);
  std::vector<MASCARA> kernels;
  leKernels(argv[2], kernels, IMAGENS::nenhuma);
  std::printf("Numero de kernels=%u\n", static_cast<unsigned>(kernels.size()));

  std::puts("Calculando correlacoes em piramide e achando maximos locais...");
  std::vector<MAXLOCAL> v = detect::procura(std::move(imagem), kernels, minCorr, relata);
  // Finding nothing at all is an error of this sub-program: that of ordering an empty list.
  if (v.empty()) ordena(v, 0, -1);

  std::printf("Imprimindo os %u maximos locais\n", static_cast<unsigned>(v.size()));
  impMaxLocais(v, argv[3]);
}
