#pragma once

#include <limits>

// What a detection must satisfy to be kept: a correlation not below `minCorr`, and no more than
// `maxInter` of its pixels (0 to 1) shared. NaN rejects nothing.
struct LIMIAR {
  double minCorr = std::numeric_limits<double>::quiet_NaN();
  double maxInter = std::numeric_limits<double>::quiet_NaN();
};

struct LIMIARES {
  LIMIAR circulo, retangulo, quadrado, elipse;

  // The thresholds of a letter; other letters than c, r, q, e have none.
  LIMIAR de(char forma) const {
    switch (forma) {
      case 'c':
        return circulo;
      case 'r':
        return retangulo;
      case 'q':
        return quadrado;
      case 'e':
        return elipse;
      default:
        return {};
    }
  }
};
