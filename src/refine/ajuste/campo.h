#pragma once

#include <opencv2/core.hpp>
#include <vector>

namespace refine {

// A picture made ready for the fit: itself and its reductions, each smoothed and with its level of
// noise. Grey is 0 to 1.

// One reduction: a pixel is the mean of 2^nivel x 2^nivel pixels of the picture, so that place x of
// the picture is (x + 1/2) / 2^nivel - 1/2 here.
struct ANDAR {
  int nivel = 0;
  int rows = 0;
  int cols = 0;
  cv::Mat_<float> liso;  // smoothed, with `margem` pixels more on every side, edges repeated
  double ruido = 0;      // slopes (grey a pixel) below this may be noise
  double gradiente = 0;  // median size of the slope
  double desvio = 0;     // standard deviation of the grey values

  static constexpr int margem = 16;

  // Grey at a place, between pixels by bilinear interpolation. From -margem + 1 to rows (cols) +
  // margem - 2.
  float em(double l, double c) const {
    const auto li = static_cast<int>(l + margem);
    const auto ci = static_cast<int>(c + margem);
    const auto y = static_cast<float>(l + margem - li);
    const auto x = static_cast<float>(c + margem - ci);
    const float* p = liso.ptr<float>(li) + ci;
    const float* q = p + liso.step1();
    const float cima = p[0] + x * (p[1] - p[0]);
    const float baixo = q[0] + x * (q[1] - q[0]);
    return cima + y * (baixo - cima);
  }

  bool contem(double l, double c) const {
    return l >= -0.5 && c >= -0.5 && l <= rows - 0.5 && c <= cols - 0.5;
  }
};

struct CAMPO {
  std::vector<ANDAR> andares;  // at least one

  // The reduction in which a shape of this lesser half size (pixels of the picture) has 6 to 12
  // pixels.
  const ANDAR& andarPara(double menorMetade) const;
};

// Makes the picture ready; it is halved as long as both sides have 32 pixels.
CAMPO preparaCampo(const cv::Mat_<unsigned char>& imagem);

// Gaussian smoothing, the kernel cut at 4 sigma, edges repeated; sums in a fixed order.
cv::Mat_<float> alisa(const cv::Mat_<float>& imagem, double sigma);

}  // namespace refine
