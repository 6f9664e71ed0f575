#pragma once

#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "textura/rede.h"

namespace textura {

// The maps of a picture, of its size, 0 to 255: inside of a grain, its limit, and distance to the
// limit by the largest of its grain.
struct MAPA {
  cv::Mat_<unsigned char> dentro, limite, distancia;
};

// What the network is shown is grey less `media`, divided by `desvio`: those of the photograph.
struct TOM {
  double media = 0;
  double desvio = 1;
};
// Pictures of less deviation than this are taken to have this much.
inline constexpr double menorDesvio = 1;
TOM tom(const cv::Mat_<unsigned char>& foto);

// The map of each picture, all seen in the same tone. Pictures are gone through in tiles that
// overlap, so that the network's memory is bounded, on `fios` threads; neither shows in the maps.
std::vector<MAPA> mapeia(const std::vector<cv::Mat_<unsigned char>>& fotos, const TOM& t,
                         const REDE& rede, int fios);

}  // namespace textura
