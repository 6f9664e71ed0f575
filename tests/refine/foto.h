#pragma once

#include <opencv2/core.hpp>
#include <random>
#include <vector>

#include "refine/ajuste/campo.h"
#include "refine/contorno/figura.h"

// Dark shapes on a bright ground, each pixel by the share of it that they cover.
struct LUZ {
  double fundo = 0.8;
  double grao = 0.3;
  double desfoque = 0.8;  // deviation, pixels
  double ruido = 0;       // deviation, grey levels of 255
};

cv::Mat_<unsigned char> fotografaFormas(cv::Size tamanho, const std::vector<refine::FIGURA>& formas,
                                        const LUZ& luz, std::mt19937& g);

// A reduction whose smoothed grey is `grey(l, c)` at every pixel, with this level of noise.
template <class GREY>
refine::ANDAR andarDe(int rows, int cols, double ruido, GREY grey) {
  constexpr int m = refine::ANDAR::margem;
  refine::ANDAR a;
  a.rows = rows;
  a.cols = cols;
  a.ruido = ruido;
  a.liso.create(rows + 2 * m, cols + 2 * m);
  for (int l = 0; l < a.liso.rows; ++l) {
    for (int c = 0; c < a.liso.cols; ++c) a.liso(l, c) = static_cast<float>(grey(l - m, c - m));
  }
  return a;
}
