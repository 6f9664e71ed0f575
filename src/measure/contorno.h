#pragma once

#include <vector>

#include "refine/contorno/figura.h"

namespace measure {

// The exact outline of a shape, from its nominal sizes. Places are those of the lists:
// x is the column and y the row, pixel centres have whole coordinates, and the picture reaches from
// -1/2 to cols - 1/2 and rows - 1/2. Circles use d1 alone and no angle, squares d1 alone.

struct PONTO {
  double x = 0;
  double y = 0;
};

// The direction of the first size: {cos, sin} of the angle, exact at multiples of 90 degrees.
PONTO direcao(double ang);

// Half the width (x) and half the height (y) of the upright box that just holds the shape. With
// (c, s) the direction and a, b half the sizes: |a c| + |b s| by |a s| + |b c| for a rectangle, the
// roots of the sums of the squares for an ellipse.
PONTO meiaCaixa(const refine::FIGURA& f);

// Whether the sides or axes lie along the rows and columns, so that the box says it all.
bool aprumada(const refine::FIGURA& f);

// The deviation of the outlines that are written for other programs, in pixels.
inline constexpr double desvioUsual = 0.02;

// Vertices of the outline, the first not repeated. A square or rectangle has its four corners. A
// circle or ellipse has points of the curve, a multiple of four of them, ends of the axes included,
// so many that no chord lies further than `desvio` pixels from the curve. The signed area
// sum (x[i] y[i+1] - x[i+1] y[i]) / 2 is positive: counter-clockwise where y points up, clockwise
// on the screen, where it points down.
std::vector<PONTO> contorno(const refine::FIGURA& f, double desvio);

}  // namespace measure
