#pragma once

#include <opencv2/core.hpp>

namespace textura {

// How hills are told apart.
struct CORTE {
  int menorPico = 60;  // hills whose highest pixel lies below are none
  int menorVale = 60;  // two hills are one unless the way from the lower one's top goes down so far
};

// Watershed: every pixel of `relevo` above 0 belongs to the hill that water, falling from above,
// reaches it from (by rows and columns); the result numbers the hills from 1 in the order in which
// their first pixels come, 0 is no hill. Pixels of equal height go to the hill nearest by, the one
// that came first where there are two.
cv::Mat_<int> inunda(const cv::Mat_<unsigned char>& relevo, const CORTE& corte);

}  // namespace textura
