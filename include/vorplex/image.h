#pragma once

#include <cstddef>
#include <cstdint>

namespace vorplex {

// The size of a picture in pixels, each from 0 to 1048576 and their product at most 1073741824.
struct Extent {
  int rows = 0;
  int columns = 0;
};

// A grey picture in the caller's memory: bytes, 0 black, 255 white. It is only read, and must stay
// until the call that was given it returns. For colour, use 0.299 R + 0.587 G + 0.114 B.
struct Image {
  const std::uint8_t* pixels = nullptr;  // pixel (0, 0)
  Extent extent;
  std::ptrdiff_t stride = 0;  // bytes from a row to the next; 0 for rows without a gap
};

// The same in floats, where 0 is black and 1 is white. They may lie outside that range. What
// consists of whole multiples of 1/255 is searched faster than the rest.
struct FloatImage {
  const float* pixels = nullptr;
  Extent extent;
  std::ptrdiff_t stride = 0;  // bytes, a multiple of 4; 0 for rows without a gap
};

}  // namespace vorplex
