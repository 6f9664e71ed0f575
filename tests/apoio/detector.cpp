#include "apoio/detector.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "kernels/normaliza.h"
#include "pim/converte.h"

cv::Mat_<unsigned char> fotoDeGraos() {
  cv::Mat_<unsigned char> img(90, 120);
  for (int l = 0; l < img.rows; ++l) {
    for (int c = 0; c < img.cols; ++c) {
      const bool discoGrande = std::hypot(l - 30, c - 35) <= 10.2;
      const bool discoPequeno = std::hypot(l - 70, c - 25) <= 7.2;
      const bool quadrado = std::max(std::abs(l - 45), std::abs(c - 85)) <= 9;
      const int tom = discoGrande || discoPequeno || quadrado ? 60 : 200;
      img(l, c) = static_cast<unsigned char>(tom + (l * 7 + c * 13 + l * c) % 11);
    }
  }
  return img;
}

bool achou(const std::vector<MAXLOCAL>& v, char forma, int li, int ci, double d1) {
  return std::any_of(v.begin(), v.end(), [&](const MAXLOCAL& m) {
    return m.forma == forma && std::abs(m.li - li) <= 2 && std::abs(m.ci - ci) <= 2 &&
           std::abs(m.d1 - d1) <= 0.15 * d1;
  });
}

double maiorDiferenca(const cv::Mat_<float>& a, const cv::Mat_<double>& b) {
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

cv::Mat_<float> cinzaSorteada(std::mt19937& g, int rows, int cols) {
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
