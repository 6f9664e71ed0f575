#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "pim/converte.h"
#include "sugere/sugere.h"

namespace proposta {

// All that was looked at in one picture: each part of a photograph, and each reduced photograph,
// with the outlines of what was seen in the polarity chosen, and the number of its photograph.
cv::Mat_<pim::VEC3B> figura(const sugere::SUGESTAO& s);

}  // namespace proposta
