#pragma once

#include <limits>
#include <opencv2/core.hpp>
#include <vector>

#include "refine/apura.h"
#include "textura/mapa.h"
#include "textura/rede.h"

namespace textura {

struct MODO {
  double menor = 0;  // sizes that a grain may have: diameter of equal area, pixels
  double maior = std::numeric_limits<double>::infinity();
  double sensibilidade = 0.5;  // 0: few and sure, 1: many
  int fios = 1;                // threads; results don't depend on it
};

struct ACHADOS {
  std::vector<refine::APURADO> graos;  // ellipses, by decreasing support
  cv::Mat_<int> rotulos;               // k + 1 on the pixels of grain k, 0 elsewhere
  MAPA mapa;                           // at full size
};

// The grains of a photograph by the network: seen at full size, at a half, a quarter and so on,
// each instance taken from where it is neither small nor large. About 30 bytes a pixel and 250 MB.
ACHADOS acha(const cv::Mat_<unsigned char>& foto, const REDE& rede, const MODO& modo);

}  // namespace textura
