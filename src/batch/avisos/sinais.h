#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "measure/grao.h"

namespace batch {

// What a photograph itself says of a search in it, apart from what was found.
struct SINAIS {
  // The strongest round differences in grey, 0 to 1: of places darker than what is around them, and
  // of brighter ones.
  double escuros = 0;
  double claros = 0;
  // Blur of the grains' edges: full width at half maximum, pixels; 0 when there are no grains.
  double desfoque = 0;
};

// The sizes that were searched, diameters of equal area in pixels.
struct ALCANCE {
  double menor = 0;
  double maior = 0;
};

// `vista` is what was searched, dark grains on bright ground. A pass over it for each of four sizes
// within `a`, at a resolution where that size is 12 pixels.
SINAIS sinais(const cv::Mat_<unsigned char>& vista, const std::vector<measure::GRAO>& graos,
              const ALCANCE& a);

}  // namespace batch
