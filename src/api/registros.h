#pragma once

#include <cstddef>
#include <opencv2/core.hpp>
#include <vector>

#include "detect/maxlocal.h"
#include "vorplex/detection.h"
#include "vorplex/image.h"

// Records of other programs as those of the subsystems, and back.

namespace api {

// Rows and columns are rounded, ties to even; what no int can hold becomes the nearest that can.
MAXLOCAL maxLocal(const vorplex::Detection& d);
std::vector<MAXLOCAL> maxLocais(const std::vector<vorplex::Detection>& v);

vorplex::Detection deteccao(const MAXLOCAL& m);
std::vector<vorplex::Detection> deteccoes(const std::vector<MAXLOCAL>& v);

// vorplex::Error when a side is negative or more than a picture may have.
cv::Size tamanho(const vorplex::Extent& e);

// Where the pixels of a caller stand.
struct LUGAR {
  const void* pixels;
  cv::Size lados;
  std::ptrdiff_t passo;  // bytes from a row to the next; 0 for rows without a gap
};

// Bytes from a row to the next, for pixels of `pixel` bytes whose parts are of `parte` bytes.
// vorplex::Error for a step that is none, and for a picture without pixels that should have some.
std::size_t passo(const LUGAR& lugar, std::size_t pixel, std::size_t parte);

// The caller's pixels, which must not be written. vorplex::Error for an extent or a stride that is
// none, and for a picture without pixels that should have some.
cv::Mat_<unsigned char> matriz(const vorplex::Image& image);
cv::Mat_<float> matriz(const vorplex::FloatImage& image);

}  // namespace api
