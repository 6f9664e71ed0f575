#pragma once

#include <opencv2/core.hpp>
#include <vector>

namespace cenas {

// A closed outline, its last point joined to its first: x along the columns, y along the rows,
// pixel centres at whole numbers.
using CONTORNO = std::vector<cv::Point2d>;

// A piece of a picture: element (0, 0) is pixel `canto` of it.
struct RETALHO {
  cv::Point canto;
  cv::Mat_<float> valor;

  cv::Rect caixa() const { return {canto, valor.size()}; }
  float em(int l, int c) const { return valor(l - canto.y, c - canto.x); }
};

// The share of every pixel that lies inside the outline, with `margem` pixels about its box. The
// area is exact: each side adds the trapezium between itself and the right end of its row.
RETALHO cobertura(const CONTORNO& contorno, int margem = 1);

// Of the outline, in pixels; positive when it runs clockwise on the screen.
double area(const CONTORNO& contorno);

}  // namespace cenas
