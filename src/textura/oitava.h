#pragma once

#include <array>
#include <opencv2/core.hpp>
#include <vector>

#include "textura/instancias.h"
#include "textura/inunda.h"
#include "textura/mapa.h"

namespace textura {

// What is seen at one size of the photograph: grains of some 8 to 100 pixels.
struct OITAVA {
  MAPA mapa;  // the mean of several views: as it is, mirrored, and at 0.7 of the size
  cv::Mat_<int> rotulos;
  std::vector<SOMAS> instancias;  // of label k + 1
  struct ACORDO {
    double parte = 0;              // mean over the views of what both share, by what either covers
    std::array<double, 5> erro{};  // scatter of row, column, d1, d2 (pixels) and angle (degrees)
  };
  std::vector<ACORDO> acordos;  // of each instance with those of the views alone
};

OITAVA vejaOitava(const cv::Mat_<unsigned char>& foto, const TOM& t, const REDE& rede, int fios);

}  // namespace textura
