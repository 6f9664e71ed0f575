#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "refine/contorno/figura.h"

namespace estampa {

// A picture of whose pixel is whose: 0 for the ground, k for the shape before which there are k - 1
// in the list. A pixel belongs to the first shape of the list that holds its centre. Of a rectangle
// or square the sides towards the lesser coordinates are part of it and the others not, so that one
// of whole sizes along the rows has as many pixels as its area says, wherever its centre is.
cv::Mat_<int> rotulos(cv::Size lados, const std::vector<refine::FIGURA>& figuras);

}  // namespace estampa
