#include "detect/maximos.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "pim/converte.h"
#include "pim/erro.h"

namespace {

// The least float that is not below `minCorr`; everything passes when that is not a number.
float limiar(double minCorr) {
  constexpr float semFim = std::numeric_limits<float>::infinity();
  if (std::isnan(minCorr)) return -semFim;
  const auto f = static_cast<float>(minCorr);
  return static_cast<double>(f) < minCorr ? std::nextafter(f, semFim) : f;
}

// Sets marca[c] to whether interior pixel (r, c) is not below `minimo` nor below any of its eight
// neighbours. Without branches and in words of the size of a float, so that the compiler takes many
// columns at a time.
void marcaMaximos(const cv::Mat_<float>& M, int r, float minimo, std::vector<int>& marca) {
  const float* acima = M[r - 1];
  const float* linha = M[r];
  const float* abaixo = M[r + 1];
  int* saida = marca.data();
  const int n = M.cols - 1;
  for (int c = 1; c < n; ++c) {
    const float cima = std::max(std::max(acima[c - 1], acima[c]), acima[c + 1]);
    const float baixo = std::max(std::max(abaixo[c - 1], abaixo[c]), abaixo[c + 1]);
    const float lados = std::max(linha[c - 1], linha[c + 1]);
    const float exigido = std::max(std::max(cima, baixo), std::max(lados, minimo));
    saida[c] = linha[c] >= exigido ? 1 : 0;
  }
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
  const float minimo = limiar(minCorr);
  std::vector<int> marca;
  for (std::size_t L = 0; L < melhorCorrel.size(); ++L) {
    const cv::Mat_<float>& M = melhorCorrel[L];
    marca.assign(static_cast<std::size_t>(M.cols), 0);
    for (int r = 1; r < M.rows - 1; ++r) {
      marcaMaximos(M, r, minimo, marca);
      for (auto p = marca.begin(); (p = std::find(p, marca.end(), 1)) != marca.end(); ++p) {
        const auto c = static_cast<int>(p - marca.begin());
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
