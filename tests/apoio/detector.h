#pragma once

#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "detect/maxlocal.h"

// A small photograph for the detector: dark discs and squares of two sizes on a bright ground, with
// a fixed texture.
cv::Mat_<unsigned char> fotoDeGraos();

// Whether some detection has this letter, its centre within two pixels and its size within 15%.
bool achou(const std::vector<MAXLOCAL>& v, char forma, int li, int ci, double d1);
