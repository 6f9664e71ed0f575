#pragma once

#include <vector>

#include "kernels/mascara.h"

namespace vorplex {

// Kernels without images.
struct KernelSet {
  std::vector<MASCARA> kernels;
};

}  // namespace vorplex
