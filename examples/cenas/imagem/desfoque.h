#pragma once

#include <opencv2/core.hpp>

namespace cenas {

// The picture under a bell of deviation `sigma` along both axes, its border pixels repeated. In
// plain arithmetic, so that it is the same on every machine.
cv::Mat_<float> desfoca(const cv::Mat_<float>& imagem, double sigma);

}  // namespace cenas
