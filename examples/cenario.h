#pragma once

#include <cstdint>
#include <opencv2/core.hpp>
#include <vector>

#include "examples/grao.h"

// What a scene is made from. The same values give the same scene on every machine.
struct CENARIO {
  int linhas = 768;
  int colunas = 1024;
  int graos = 200;
  std::uint64_t semente = 1;
};

// Grains of the four families in equal shares, wholly inside the image, their mean sizes
// (geometric, of the two sizes) log-normal about 21 pixels within 12 to 45. One in four touches
// another; all others keep 3 pixels of ground between them. There are fewer than asked when no room
// is left. All numbers are rounded as `gravaGraos` writes them, so that the file is the exact
// truth.
std::vector<GRAO> povoa(const CENARIO& cenario);

// The photograph of these grains: dark on a brighter ground, each of its own shade, under light
// that falls off toward the corners and to one side, with fine texture, the blur of a lens
// (deviation 1 pixel) and the noise of a sensor.
cv::Mat_<unsigned char> pinta(const CENARIO& cenario, const std::vector<GRAO>& graos);
