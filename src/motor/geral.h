#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "motor/motor.h"
#include "motor/termos/grupo.h"

namespace motor {

// Fills `melhor` and `qual`, which have the image's size, one kernel at a time through the general
// filter: any image, any weights.
void correlaGeral(const cv::Mat_<float>& imagem, const std::vector<const ESQUEMA*>& kernels,
                  const pim::PAUSA& pausa, cv::Mat_<float>& melhor, cv::Mat_<int>& qual);

}  // namespace motor
