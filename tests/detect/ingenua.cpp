#include "detect/ingenua.h"

#include <gtest/gtest.h>

#include <cmath>

#include "kernels/normaliza.h"
#include "pim/converte.h"

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

double maiorDiferenca(const cv::Mat_<float>& a, const cv::Mat_<double>& b) {
  EXPECT_EQ(a.size(), b.size());
  if (a.size() != b.size()) return HUGE_VAL;
  double maior = 0;
  for (int l = 0; l < b.rows; ++l) {
    for (int c = 0; c < b.cols; ++c) {
      maior = std::max(maior, std::abs(static_cast<double>(a(l, c)) - b(l, c)));
    }
  }
  return maior;
}

cv::Mat_<float> pesosSorteados(std::mt19937& g, int n) {
  std::uniform_real_distribution<float> peso(-1.0F, 1.0F);
  cv::Mat_<float> K(n, n);
  for (float& x : K) x = g() % 4 == 0 ? 0.0F : peso(g);
  K(0, 0) = 0.5F;
  K(n - 1, n - 1) = -0.5F;
  NegPosUm(K);
  return K;
}

cv::Mat_<float> imagemSorteada(std::mt19937& g, int rows, int cols) {
  std::uniform_real_distribution<float> tom(0.0F, 1.0F);
  cv::Mat_<float> img(rows, cols);
  for (float& x : img) x = tom(g);
  return img;
}

cv::Mat_<float> fotoSorteada(std::mt19937& g, int rows, int cols) {
  cv::Mat_<unsigned char> cinza(rows, cols);
  for (unsigned char& x : cinza) x = static_cast<unsigned char>(g() % 256);
  cv::Mat_<float> img;
  pim::converte(cinza, img, 0.00392156862745098, 0.0);
  return img;
}

PIRAMIDE piramideDe(const cv::Mat_<float>& img, int maximo) {
  PIRAMIDE p;
  constroiPiramide(p, img, maximo);
  return p;
}
