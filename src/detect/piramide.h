#pragma once

#include <opencv2/core.hpp>
#include <vector>

// Level L of a pyramid is the image reduced L times by pim::myPyrDown; level 0 is the image itself.
using PIRAMIDE = std::vector<cv::Mat_<float>>;

// Fills `piramide` (its earlier levels are released) with `imagem`, whose pixels level 0 shares,
// and its reductions: at most `maximo` levels, or no limit when that is below 1, and none below a
// level of one row or one column.
void constroiPiramide(PIRAMIDE& piramide, cv::Mat_<float> imagem, int maximo);
