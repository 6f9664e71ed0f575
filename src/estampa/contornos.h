#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "measure/grao.h"
#include "pim/converte.h"

namespace estampa {

// Draws the exact outline of each grain into the photograph, in place: a smoothed line a pixel wide
// through the outline's own fractions of a pixel, in the colour of its letter.
void desenhaContornos(cv::Mat_<pim::VEC3B>& foto, const std::vector<measure::GRAO>& graos);

// Writes the index of each grain beside it.
void desenhaIndices(cv::Mat_<pim::VEC3B>& foto, const std::vector<measure::GRAO>& graos);

}  // namespace estampa
