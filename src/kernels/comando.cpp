#include "kernels/comando.h"

#include <cstdio>
#include <vector>

#include "kernels/lekernels.h"
#include "pim/erro.h"
#include "pim/gruda.h"
#include "pim/imagem.h"

namespace {

void lista(const std::vector<MASCARA>& kernels) {
  std::printf("Numero de kernels=%u\n", static_cast<unsigned>(kernels.size()));
  for (const MASCARA& m : kernels) {
    std::printf("forma=%c d1=%g d2=%g ang=%g", m.forma, m.d1, m.d2, m.ang);
    std::printf(" esc=%g escPir=%g sPir=%d inic=%d\n", m.esc, m.escPir, m.sPir, m.inic);
  }
}

// Kernels stack up in a column that joins the mosaic at the last scale of a run. Kernels after the
// last such one are left out, as a run of a single scale never closes its column.
cv::Mat_<unsigned char> mosaico(const std::vector<MASCARA>& kernels) {
  cv::Mat_<unsigned char> tudo;
  cv::Mat_<unsigned char> coluna;
  for (const MASCARA& m : kernels) {
    cv::Mat_<unsigned char> cinza;
    kernelParaCinza(m.kernel, cinza);
    coluna = pim::grudaV(coluna, cinza, 1, 0);
    if (m.inic == 2) {
      tudo = pim::grudaH(tudo, coluna, 1, 0);
      coluna.release();
    }
  }
  return tudo;
}

}  // namespace

void kernelParaCinza(const cv::Mat_<float>& K, cv::Mat_<unsigned char>& G) {
  G.create(K.size());
  for (int l = 0; l < K.rows; ++l) {
    for (int c = 0; c < K.cols; ++c) {
      G(l, c) = K(l, c) < 0 ? 0 : K(l, c) > 0 ? 255 : 128;
    }
  }
}

void Kernel(int argc, char** argv) {
  if (argc != 3) {
    std::puts("Kernel kernel.cfg kernel.pgm");
    pim::erro("Erro: Numero de argumentos invalido");
  }
  std::vector<MASCARA> kernels;
  leKernels(argv[1], kernels);
  lista(kernels);
  pim::imp(mosaico(kernels), argv[2]);
}
