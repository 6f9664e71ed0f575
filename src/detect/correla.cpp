#include "detect/correla.h"

#include <cstdio>
#include <vector>

#include "detect/correlacao.h"
#include "detect/maximos.h"
#include "detect/maxlocal.h"
#include "detect/ordenacao.h"
#include "kernels/lekernels.h"
#include "pim/converte.h"
#include "pim/erro.h"
#include "pim/imagem.h"
#include "pim/texto.h"

namespace {

constexpr int maximoDeNiveis = 4;

void exigeArgumentos(int argc) {
  if (argc == 4 || argc == 5) return;
  // The usage line offers maxDist, but a sixth element is refused: the distance is fixed.
  std::puts("Correla imagem.pgm kernel.cfg imagem.ho1 [minCorr] [maxDist]");
  std::puts("  maxLocal com correlacao<minCorr e' eliminado");
  std::puts("  um maxLocal com distancia<=maxDist de outro maxLocal e' eliminado");
  std::puts("  Default: minCorr=0.001 maxDist=2");
  pim::erro("Erro: Numero de argumentos invalido");
}

// Searches group by group; a group ends at each kernel that closes a run of scales (inic 2), so
// kernels after the last such one are never applied.
std::vector<MAXLOCAL> procuraPorGrupos(const PIRAMIDE& piramide,
                                       const std::vector<MASCARA>& kernels, double minCorr) {
  const NIVEIS preparados = preparaNiveis(piramide);
  std::vector<MAXLOCAL> todos;
  MELHORCORREL melhorCorrel;
  MELHORKERNEL melhorKernel;
  int primeiro = 0;
  for (int i = 0; i < static_cast<int>(kernels.size()); ++i) {
    if (kernels[static_cast<std::size_t>(i)].inic != 2) continue;
    std::printf("Aplicando filtro #%u-#%u\r", static_cast<unsigned>(primeiro),
                static_cast<unsigned>(i));
    std::fflush(stdout);
    correlaGrupo(preparados, kernels, primeiro, i, melhorCorrel, melhorKernel);
    std::vector<MAXLOCAL> doGrupo;
    findMaxLocal(melhorCorrel, melhorKernel, kernels, doGrupo, minCorr);
    acrescenta(todos, doGrupo);
    primeiro = i + 1;
  }
  std::puts("");
  return todos;
}

}  // namespace

void lePiramide(const std::string& nome, PIRAMIDE& piramide, int maximo) {
  cv::Mat_<unsigned char> cinza;
  pim::le(cinza, nome);
  cv::Mat_<float> imagem;
  pim::converte(cinza, imagem, 0.00392156862745098, 0.0);
  constroiPiramide(piramide, imagem, maximo);
}

void Correla(int argc, char** argv) {
  exigeArgumentos(argc);
  double minCorr = 0.001;
  const int maxDist = 2;
  if (argc == 5) pim::convArg(minCorr, argv[4]);

  std::printf("Lendo %s e construindo piramide...\n", argv[1]);
  PIRAMIDE piramide;
  lePiramide(argv[1], piramide, maximoDeNiveis);

  std::printf("Lendo %s e construindo kernels...\n", argv[2]);
  std::vector<MASCARA> kernels;
  leKernels(argv[2], kernels);
  std::printf("Numero de kernels=%u\n", static_cast<unsigned>(kernels.size()));

  std::puts("Calculando correlacoes em piramide e achando maximos locais...");
  std::vector<MAXLOCAL> todos = procuraPorGrupos(piramide, kernels, minCorr);

  std::printf("Ordenando os %u maximos locais em ordem decrescente de correlacao...\n",
              static_cast<unsigned>(todos.size()));
  ordena(todos, 0, static_cast<int>(todos.size()) - 1);

  std::puts("Eliminando os maximos locais muito proximos...");
  std::vector<MAXLOCAL> mantidos;
  eliminaProximo(todos, mantidos, maxDist);

  std::printf("Imprimindo os %u maximos locais\n", static_cast<unsigned>(mantidos.size()));
  impMaxLocais(mantidos, argv[3]);
}
