#include "examples/cenas/imagem/desfoque.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace cenas {

namespace {

std::vector<float> pesosDoSino(double sigma) {
  const int alcance = static_cast<int>(std::ceil(4 * sigma));
  std::vector<double> pesos;
  double soma = 0;
  for (int i = -alcance; i <= alcance; ++i) {
    pesos.push_back(std::exp(-i * i / (2 * sigma * sigma)));
    soma += pesos.back();
  }
  std::vector<float> v;
  v.reserve(pesos.size());
  for (const double p : pesos) v.push_back(static_cast<float>(p / soma));
  return v;
}

cv::Mat_<float> desfocaColunas(const cv::Mat_<float>& imagem, const std::vector<float>& pesos) {
  const int alcance = static_cast<int>(pesos.size() / 2);
  cv::Mat_<float> saida(imagem.size(), 0.0F);
  for (int l = 0; l < imagem.rows; ++l) {
    int vizinha = l - alcance;
    for (const float peso : pesos) {
      const float* origem = imagem[std::clamp(vizinha++, 0, imagem.rows - 1)];
      for (int c = 0; c < imagem.cols; ++c) saida(l, c) += peso * origem[c];
    }
  }
  return saida;
}

}  // namespace

cv::Mat_<float> desfoca(const cv::Mat_<float>& imagem, double sigma) {
  if (sigma < 0.05) return imagem.clone();
  const std::vector<float> pesos = pesosDoSino(sigma);
  cv::Mat_<float> deitada;
  cv::transpose(desfocaColunas(imagem, pesos), deitada);
  cv::Mat_<float> saida;
  cv::transpose(desfocaColunas(deitada, pesos), saida);
  return saida;
}

}  // namespace cenas
