#pragma once

#include <limits>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "detect/maxlocal.h"
#include "pim/converte.h"

// Photographs and detections for what is drawn.

using FOTO = cv::Mat_<pim::VEC3B>;
using RETRATO = std::vector<std::string>;

inline constexpr int menorInt = std::numeric_limits<int>::min();
inline constexpr int maiorInt = std::numeric_limits<int>::max();
inline const pim::VEC3B vermelho(0, 0, 255);

inline FOTO preta(int rows, int cols) {
  return FOTO(rows, cols, pim::VEC3B(0, 0, 0));
}

inline MAXLOCAL deteccao(char forma, int li, int ci, double d1, double d2 = 0, double ang = 0) {
  return {0.5F, forma, li, ci, d1, d2, ang};
}
