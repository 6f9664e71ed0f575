#pragma once

#include <opencv2/core.hpp>

namespace pim {

// A new image with `b` to the right of `a` (grudaH) or below it (grudaV), separated by a band of
// `espaco` pixels of value `cor`. The smaller image is centred across the join (an odd margin is
// one pixel narrower before than after it) and its margin filled with `cor`. The operands are
// left untouched; when one of them is empty the result is the other, sharing its pixels.
cv::Mat_<unsigned char> grudaH(const cv::Mat_<unsigned char>& a, const cv::Mat_<unsigned char>& b,
                               int espaco, unsigned char cor);
cv::Mat_<unsigned char> grudaV(const cv::Mat_<unsigned char>& a, const cv::Mat_<unsigned char>& b,
                               int espaco, unsigned char cor);

}  // namespace pim
