#pragma once

#include "detect/correlacao.h"

// Correlation in its plain form: the general filter for each kernel and level, then a pass that
// keeps the better values. Same contract as correlaGrupo of detect/correlacao.h.
namespace referencia {

void correlaGrupo(const PIRAMIDE& piramide, const std::vector<MASCARA>& kernels, int primeiro,
                  int ultimo, MELHORCORREL& melhorCorrel, MELHORKERNEL& melhorKernel);

// The correlation at pixel (l, c) by its definition, the border of the image repeated outside it,
// and that of every pixel.
double somaEm(const cv::Mat_<float>& img, const cv::Mat_<float>& K, int l, int c);
cv::Mat_<double> somaDireta(const cv::Mat_<float>& img, const cv::Mat_<float>& K);

}  // namespace referencia
