#pragma once

#include <array>

#include "refine/contorno/figura.h"

namespace refine {

// The shape with row, column, sizes and angle to two digits of their standard errors (in that
// order, in the units of the shape): what comes after says nothing. Numbers without an error stay
// as they are. Doing it again changes nothing.
FIGURA peloErro(FIGURA f, const std::array<double, 5>& erro);

}  // namespace refine
