#pragma once

#include <opencv2/core.hpp>

#include "examples/cenas/tipos/tipo.h"

namespace cenas {

// The ground that the grains lie on, in shares of white: textures, threads, streaks and lines.
cv::Mat_<float> pintaChao(const CHAO& chao, cv::Size tamanho, SORTEIO& s);

}  // namespace cenas
