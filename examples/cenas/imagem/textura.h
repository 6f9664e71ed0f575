#pragma once

#include <cstdint>
#include <opencv2/core.hpp>

#include "examples/sorteio.h"

namespace cenas {

// Smooth noise from -1 to 1: random values on a grid of `passo` pixels, interpolated between.
struct TEXTURA {
  double passo;
  std::uint64_t semente;

  double em(double l, double c) const;
};

// Two textures, the finer one turned, so that no grid is seen; from -1 to 1, mostly within 0.6.
double nuvem(double passo, std::uint64_t semente, double l, double c);

}  // namespace cenas
