#pragma once

#include <opencv2/core.hpp>
#include <vector>

// Level L of a pyramid is the image reduced L times by pim::myPyrDown; level 0 is the image itself.
using PIRAMIDE = std::vector<cv::Mat_<float>>;

// Fills `piramide` (its earlier levels are released) with `imagem`, whose pixels level 0 shares,
// and its reductions: at most `maximo` levels, or no limit when that is below 1, and none below a
// level of one row or one column.
void constroiPiramide(PIRAMIDE& piramide, cv::Mat_<float> imagem, int maximo);

namespace detect {

// Grey bytes as an image of 0..1, which is what searches take.
cv::Mat_<float> emReais(const cv::Mat_<unsigned char>& cinza);

}  // namespace detect
