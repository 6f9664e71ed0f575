#pragma once

#include <vector>

#include "motor/termos/escadas.h"

namespace motor {

// How the correlation with a shape kernel is done in a few additions.
//
// The sum of the image over a region (regioes.h) comes from prefix sums along the rows,
//
//   X(r, c) = image(r, c) + X(r, c-1),
//
// as X at the last pixel of each of its rows less X just before the first. For the region
//
//   . # # .      X(0,2) - X(0,0) + X(1,3) - X(1,0) + X(2,3) - X(2,0) + X(3,2) - X(3,0)
//   . # # #      (columns 0..3, rows 0..3)
//   . # # #
//   . # # .
//
// The ends of each side make staircases (escadas.h). With the plane S of those with steps 0, which
// sums X down the columns, the left side is - S(3,0) + S(-1,0) instead of four terms.

// One addition (sinal +1) or subtraction (-1) of a plane's value `dl` rows below and `dc` columns
// right of the pixel. Plane 0 is X.
struct TERMO {
  int plano;
  int dl;
  int dc;
  int sinal;
};

// A plane after X, made from the planes before it: at each pixel its own value one step (dl, dc)
// before, plus the image's pixel or plus the terms of `soma`.
struct PLANO {
  int dl;
  int dc;
  bool dosPixels;
  std::vector<TERMO> soma;
};

// The planes of all staircases, in order: for each that of its ends, then that of its deviations
// if it has one.
std::vector<PLANO> planosDasEscadas(const std::vector<ESCADA>& escadas);

// Terms whose signed sum is the sum of the image over the region of these sides, the pixel
// evaluated lying at row 0, column 0 of the sides' coordinates.
std::vector<TERMO> termosDosLados(const std::vector<LADO>& lados,
                                  const std::vector<ESCADA>& escadas);

}  // namespace motor
