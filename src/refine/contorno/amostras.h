#pragma once

#include <array>
#include <vector>

#include "refine/contorno/figura.h"

namespace refine {

// What a shape is moved by: row, column, the two sizes and the angle.
inline constexpr int parametros = 5;

// A point of a contour.
struct AMOSTRA {
  double l, c;       // its place
  double nl, nc;     // outward unit normal
  double arco;       // length of contour that it stands for, pixels
  double curvatura;  // 1/pixels, positive where the shape is convex
  int lado;          // samples of one side follow each other; curves have one
  double peso;       // 1, less near a corner, where two edges meet
  std::array<double, parametros> derivada;  // of the contour's place along the normal by row,
                                            // column, d1, d2 (pixels) and angle (radians)
};

// About `n` points spread over the contour: on curves at equal steps of the parametric angle, on
// sides at equal distances. `v` is replaced.
void amostra(const FIGURA& f, int n, std::vector<AMOSTRA>& v);

}  // namespace refine
