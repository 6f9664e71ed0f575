#pragma once

#include <array>
#include <cstdint>
#include <opencv2/core.hpp>
#include <unordered_map>
#include <vector>

#include "detect/maxlocal.h"

// A shape's mask as stretches of pixels, row by row from the top.
struct SILHUETA {
  struct TRECHO {
    int linha;  // row less the row of the centre
    int de;     // first and last column, less the column of the centre
    int ate;
  };
  int rows = 0;  // of the mask
  int cols = 0;
  std::int64_t pixels = 0;  // of the shape
  std::vector<TRECHO> trechos;
};

// The stretches of value 0 of a mask whose centre is pixel (rows/2, cols/2).
SILHUETA silhueta(const cv::Mat_<unsigned char>& mascara);

// Silhouettes of detections, each made once: a list holds many detections of few kernels.
struct SILHUETAS {
  // The silhouette of the shape of `m`, empty for an unknown letter; valid until `arruma`.
  const SILHUETA& de(const MAXLOCAL& m);

  // Forgets all silhouettes when they have become too many: a list of ever new shapes.
  void arruma();

 private:
  using CHAVE = std::array<std::uint64_t, 4>;  // letter, and the bits of d1, d2 and ang
  struct MISTURA {
    std::size_t operator()(const CHAVE& chave) const;
  };
  std::unordered_map<CHAVE, SILHUETA, MISTURA> feitas;
  std::size_t trechosGuardados = 0;
};
