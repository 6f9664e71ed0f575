#include "kernels/mascara.h"

namespace kernels {

cv::Mat_<float> imagemDoKernel(const MASCARA& m) {
  cv::Mat_<float> K = m.kernel;
  if (K.empty() && m.molde.forma != 0) desenhaKernel(K, m.molde);
  return K;
}

}  // namespace kernels
