#include "pim/converte.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <opencv2/imgproc.hpp>

namespace pim {

void converte(const cv::Mat_<unsigned char>& a, cv::Mat_<float>& b, double escala, double desloc) {
  std::array<float, 256> tabela{};
  for (std::size_t k = 0; k < tabela.size(); ++k) {
    tabela[k] = static_cast<float>(static_cast<double>(k) * escala + desloc);
  }
  b.create(a.size());
  for (int l = 0; l < a.rows; ++l) {
    const unsigned char* origem = a[l];
    float* destino = b[l];
    for (int c = 0; c < a.cols; ++c) destino[c] = tabela[origem[c]];
  }
}

void converte(const cv::Mat_<unsigned char>& a, cv::Mat_<VEC3B>& b) {
  b.create(a.size());
  for (int l = 0; l < a.rows; ++l) {
    for (int c = 0; c < a.cols; ++c) b(l, c) = VEC3B::all(a(l, c));
  }
}

void converte(const cv::Mat_<VEC3B>& a, cv::Mat_<unsigned char>& b) {
  cv::cvtColor(a, b, cv::COLOR_BGR2GRAY);
}

void myPyrDown(const cv::Mat_<float>& a, cv::Mat_<float>& b) {
  cv::pyrDown(a, b);
}

int arredonda(double x) {
  return trunca(std::nearbyint(x));
}

int trunca(double x) {
  constexpr double maior = maxint;
  constexpr double menor = std::numeric_limits<int>::min();
  if (x >= maior) return maxint;
  return x >= menor ? static_cast<int>(x) : std::numeric_limits<int>::min();  // NaN fails the test
}

}  // namespace pim
