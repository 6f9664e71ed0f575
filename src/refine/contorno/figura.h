#pragma once

#include <cmath>

#include "detect/maxlocal.h"
#include "refine/contorno/numeros.h"

namespace refine {

// A shape with fractions of a pixel. Places are those of the lists: `l` is the row and `c` the
// column, pixel centres have whole coordinates. Sizes are full, in pixels, and the angle is in
// degrees, clockwise on the screen, 0 along the columns. A circle or square has d2 equal to d1, a
// circle the angle 0.
struct FIGURA {
  char forma = 'c';
  double l = 0;
  double c = 0;
  double d1 = 0;
  double d2 = 0;
  double ang = 0;
};

// The detection as a shape, its sizes and angle in the form above.
FIGURA figura(const MAXLOCAL& m);

double area(const FIGURA& f);         // square pixels
double perimetro(const FIGURA& f);    // pixels; of an ellipse within 1e-6 up to aspect 5
double menorMetade(const FIGURA& f);  // half the lesser size
double alongamento(const FIGURA& f);  // greater size by lesser, at least 1

// The same shape written in the one usual way: d1 >= d2 where both count, the angle from 0 to 180,
// of a square from 0 to 90.
FIGURA normal(FIGURA f);

// A shape's own axes: (u, v) from (row, column) and back.
struct EIXOS {
  double l, c;
  DIRECAO d;

  explicit EIXOS(const FIGURA& f) : l(f.l), c(f.c), d(direcao(f.ang)) {}

  double u(double linha, double coluna) const {
    return (coluna - c) * d.cosseno + (linha - l) * d.seno;
  }
  double v(double linha, double coluna) const {
    return (linha - l) * d.cosseno - (coluna - c) * d.seno;
  }
};

// Whether the point lies inside, the outline included.
inline bool contem(const FIGURA& f, const EIXOS& e, double linha, double coluna) {
  const double u = 2 * e.u(linha, coluna);
  const double v = 2 * e.v(linha, coluna);
  if (f.forma != 'c' && f.forma != 'e') return std::fabs(u) <= f.d1 && std::fabs(v) <= f.d2;
  const double x = u / f.d1;
  const double y = v / f.d2;
  return x * x + y * y <= 1;
}

// Half the height and half the width of the upright box that just holds the shape.
struct CAIXA {
  double altura, largura;
};
CAIXA meiaCaixa(const FIGURA& f);

// Share of the union of the two shapes that both cover, by counting the points of a grid of `n` by
// `n` over the box of both.
double interseccaoSobreUniao(const FIGURA& a, const FIGURA& b, int n = 48);

}  // namespace refine
