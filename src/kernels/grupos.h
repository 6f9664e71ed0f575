#pragma once

#include <vector>

#include "kernels/mascara.h"

namespace kernels {

// Kernels `primeiro` to `ultimo` inclusive of a set, which are searched together: of all of them
// one detection at most is taken at a place of a level.
struct GRUPO {
  int primeiro;
  int ultimo;
};

// The groups of a set, in order. A group ends at each kernel that closes a run of scales (inic 2)
// and begins after the end of the one before; kernels after the last such one are in none. So a run
// of a single scale, which closes nothing, belongs to the group of the run that follows it.
std::vector<GRUPO> grupos(const std::vector<MASCARA>& conjunto);

}  // namespace kernels
