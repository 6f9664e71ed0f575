#pragma once

#include <opencv2/core.hpp>

#include "examples/cenas/tipos/tipo.h"

namespace cenas {

// The photograph of a scene, in order: light that falls off to one side and toward the corners,
// the blur of the lens, the noise of the sensor, 256 grey levels, and compression.
cv::Mat_<unsigned char> fotografa(const cv::Mat_<float>& cena, const CAMERA& camera, SORTEIO& s);

}  // namespace cenas
