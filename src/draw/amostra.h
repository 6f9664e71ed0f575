#pragma once

#include <opencv2/core.hpp>

#include "detect/maxlocal.h"
#include "pim/converte.h"

// The pixels of `imagem` inside the shape of `m`, whose sizes are first multiplied by `fatorZoom`:
// an image of the size of the shape's mask, centred on (li, ci), black outside the shape and
// outside the photograph. An empty mask (unknown letter, circle that rounds to 0) fails the
// assertion "g.rows%2==1 && g.cols%2==1".
cv::Mat_<pim::VEC3B> extraiAm(MAXLOCAL m, cv::Mat_<pim::VEC3B> imagem, double fatorZoom);
