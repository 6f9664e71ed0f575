#include "referencia/correlacao.h"

#include <algorithm>

namespace referencia {
namespace {

void guardaMelhor(const cv::Mat_<float>& correl, int k, cv::Mat_<float>& melhor,
                  cv::Mat_<int>& indice) {
  for (int l = 0; l < correl.rows; ++l) {
    const float* nova = correl[l];
    float* best = melhor[l];
    int* qual = indice[l];
    for (int c = 0; c < correl.cols; ++c) {
      if (nova[c] > best[c]) {
        best[c] = nova[c];
        qual[c] = k;
      }
    }
  }
}

}  // namespace

void correlaGrupo(const PIRAMIDE& piramide, const std::vector<MASCARA>& kernels, int primeiro,
                  int ultimo, MELHORCORREL& melhorCorrel, MELHORKERNEL& melhorKernel) {
  melhorCorrel.resize(piramide.size());
  melhorKernel.resize(piramide.size());
  for (std::size_t L = 0; L < piramide.size(); ++L) {
    melhorCorrel[L].create(piramide[L].size());
    melhorCorrel[L].setTo(-1.0F);
    melhorKernel[L].create(piramide[L].size());
    melhorKernel[L].setTo(-1);
  }
  std::vector<cv::Mat_<float>> correl;
  for (int k = primeiro; k <= ultimo; ++k) {
    const MASCARA& m = kernels[static_cast<std::size_t>(k)];
    const int ultimoNivel = std::min(static_cast<int>(piramide.size()) - 1, m.sPir);
    correlaPiramide(piramide, m.kernel, correl, ultimoNivel);
    for (std::size_t L = 0; static_cast<int>(L) <= ultimoNivel; ++L) {
      guardaMelhor(correl[L], k, melhorCorrel[L], melhorKernel[L]);
    }
  }
}

double somaEm(const cv::Mat_<float>& img, const cv::Mat_<float>& K, int l, int c) {
  double soma = 0;
  for (int i = 0; i < K.rows; ++i) {
    for (int j = 0; j < K.cols; ++j) {
      const int y = std::clamp(l + i - K.rows / 2, 0, img.rows - 1);
      const int x = std::clamp(c + j - K.cols / 2, 0, img.cols - 1);
      soma += static_cast<double>(K(i, j)) * static_cast<double>(img(y, x));
    }
  }
  return soma;
}

cv::Mat_<double> somaDireta(const cv::Mat_<float>& img, const cv::Mat_<float>& K) {
  cv::Mat_<double> out(img.size());
  for (int l = 0; l < img.rows; ++l) {
    for (int c = 0; c < img.cols; ++c) out(l, c) = somaEm(img, K, l, c);
  }
  return out;
}

}  // namespace referencia
