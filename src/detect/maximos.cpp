#include "detect/maximos.h"

#include <cmath>

#include "pim/converte.h"
#include "pim/erro.h"

namespace {

// Whether no neighbour of the interior pixel (r, c) exceeds it.
bool ehMaximo(const cv::Mat_<float>& M, int r, int c) {
  const float v = M(r, c);
  for (int l = r - 1; l <= r + 1; ++l) {
    const float* linha = M[l] + c;
    if (v < linha[-1] || v < linha[0] || v < linha[1]) return false;
  }
  return true;
}

bool dentro(const cv::Mat& img, int l, int c) {
  return l >= 0 && l < img.rows && c >= 0 && c < img.cols;
}

// The record of a maximum of kernel m, of value v, at pixel (r, c) of level L.
MAXLOCAL registro(const MASCARA& m, float v, std::size_t L, int r, int c) {
  const double escala = std::pow(2.0, static_cast<double>(L));
  const double s = pim::trunca(escala);
  MAXLOCAL x;
  x.correl = v;
  x.forma = m.forma;
  x.li = pim::trunca((r + 1) * escala - 1);
  x.ci = pim::trunca((c + 1) * escala - 1);
  x.d1 = s * m.d1;
  x.d2 = s * m.d2;
  x.ang = m.ang;
  return x;
}

}  // namespace

void findMaxLocal(const MELHORCORREL& melhorCorrel, const MELHORKERNEL& melhorKernel,
                  const std::vector<MASCARA>& kernels, std::vector<MAXLOCAL>& maximos,
                  double minCorr) {
  for (std::size_t L = 0; L < melhorCorrel.size(); ++L) {
    const cv::Mat_<float>& M = melhorCorrel[L];
    for (int r = 1; r < M.rows - 1; ++r) {
      for (int c = 1; c < M.cols - 1; ++c) {
        if (static_cast<double>(M(r, c)) < minCorr || !ehMaximo(M, r, c)) continue;
        if (L >= melhorKernel.size() || !dentro(melhorKernel[L], r, c)) {
          pim::erro("Erro findMaxLocal: Nao dentro");
        }
        const int k = melhorKernel[L](r, c);
        if (k < 0) continue;  // no kernel exceeded -1 here
        const MAXLOCAL x = registro(kernels[static_cast<std::size_t>(k)], M(r, c), L, r, c);
        if (!dentro(melhorKernel[0], x.li, x.ci)) pim::erro("Erro findMaxLocal: Nao dentro");
        maximos.push_back(x);
      }
    }
  }
}
