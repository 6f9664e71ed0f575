#pragma once

#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "detect/maxlocal.h"

// A grain of known shape: a continuous figure, not a set of pixels. Pixel (r, c) is the unit square
// around the point (r, c).
struct GRAO {
  char forma = 'c';   // 'c' circle, 'q' square, 'r' rectangle, 'e' ellipse
  double linha = 0;   // row of the centre
  double coluna = 0;  // column of the centre
  double d1 = 0;      // full size along the angle, pixels
  double d2 = 0;      // full size across it; equal to d1 for 'c' and 'q'
  double ang = 0;     // degrees, clockwise on the screen, 0 along the columns
};

// A grain with what its geometry needs worked out once.
struct FIGURA {
  GRAO grao;
  double cosseno;
  double seno;
  bool reta;  // square or rectangle

  explicit FIGURA(const GRAO& g);

  // The point (l, c) in the grain's own axes, in halves of its sizes: 1 is the edge.
  cv::Point2d eixos(double l, double c) const;

  // 0 at the centre, 1 on the edge, growing outward.
  double nivel(double l, double c) const;

  bool dentro(double l, double c) const { return nivel(l, c) <= 1; }

  // The share of pixel (l, c) that the grain covers, from 16 by 16 points where the edge crosses.
  double cobertura(int l, int c) const;

  // The pixels that the grain may touch; it is not clipped to any image.
  cv::Rect caixa() const;
};

// The grain with both sizes increased by 2 `folga` pixels.
GRAO crescido(GRAO g, double folga);

// The diameter of the circle of the same area, pixels.
double diametro(const GRAO& g);

GRAO daDeteccao(const MAXLOCAL& m);

// A list of grains as text: the line "letter,row,col,d1,d2,ang" and one line for each grain, with
// two decimals (angles one). pim::erro at a file or line that can't be read or written.
void gravaGraos(const std::vector<GRAO>& graos, const std::string& nome);
std::vector<GRAO> leGraos(const std::string& nome);
