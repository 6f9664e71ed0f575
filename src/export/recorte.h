#pragma once

#include <vector>

#include "measure/contorno.h"

namespace exporta {

// The part of a convex outline that lies in 0 <= x <= largura, 0 <= y <= altura, in the same
// direction; no point twice in a row. Fewer than three points when nothing is left.
std::vector<measure::PONTO> recorta(std::vector<measure::PONTO> v, double largura, double altura);

// sum (x[i] y[i+1] - x[i+1] y[i]) / 2, the first point being the next of the last.
double areaComSinal(const std::vector<measure::PONTO>& v);

}  // namespace exporta
