#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "refine/contorno/figura.h"
#include "textura/mapa.h"

namespace textura {

// Sums over the pixels of one instance; whole numbers, so that their order is nothing.
struct SOMAS {
  long long n = 0, l = 0, c = 0, ll = 0, lc = 0, cc = 0;
  long long dentro = 0;  // of the map
  long long limite = 0;
  int pico = 0;    // of the distance
  cv::Rect caixa;  // that just holds it
};

// Sums of the instances 1, 2, ... of a picture of labels; element k is of label k + 1.
std::vector<SOMAS> soma(const cv::Mat_<int>& rotulos, const MAPA& mapa);

// The ellipse of equal area whose axes are as those of the instance's second moments, in pixels of
// its picture.
refine::FIGURA elipse(const SOMAS& s);

// For each instance of `a`, the label of `b` that shares the largest part of the union with it, and
// that part; label 0 where none shares any.
struct PAR {
  int outro = 0;
  double parte = 0;
};
std::vector<PAR> pares(const cv::Mat_<int>& a, const std::vector<SOMAS>& sa, const cv::Mat_<int>& b,
                       const std::vector<SOMAS>& sb);

}  // namespace textura
