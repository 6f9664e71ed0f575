#pragma once

#include <cmath>
#include <numbers>

#include "examples/sorteio.h"

namespace cenas {

inline constexpr double volta = 2 * std::numbers::pi;  // radians

// Values from which one is drawn.
struct FAIXA {
  double de = 0;
  double ate = 0;

  double sorteia(SORTEIO& s) const { return s.uniforme(de, ate); }

  // Evenly in proportions, so that halves are as frequent as doubles. Both ends above 0.
  double sorteiaRazao(SORTEIO& s) const {
    return std::exp(s.uniforme(std::log(de), std::log(ate)));
  }
};

}  // namespace cenas
