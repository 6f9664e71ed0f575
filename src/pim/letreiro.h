#pragma once

#include <opencv2/core.hpp>
#include <string>

#include "pim/converte.h"

namespace pim {

// Draws `texto` in colour `cor` on a filled box of colour `fundo` that leaves at least one pixel
// around digits and capitals, in place and clipped to the image. With `centrado` the box is centred
// on row `l`, column `c`; otherwise (l, c) is its top left corner. `tamanho` multiplies the letter
// height: 1 gives capitals and digits about 7 pixels high. The edges of the letters are not
// smoothed, so that only the two colours appear.
void putTxt(cv::Mat_<VEC3B>& img, int l, int c, const std::string& texto, const VEC3B& cor,
            int tamanho, bool centrado, const VEC3B& fundo);

}  // namespace pim
