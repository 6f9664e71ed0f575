#include "apoio/detector.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

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
