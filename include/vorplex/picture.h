#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "vorplex/image.h"

namespace vorplex {

enum class Depth { bytes, words, floats };  // std::uint8_t, std::uint16_t, float

// A picture of other pixels than `Image`, in the caller's memory: grey, or the channels of a pixel
// one after the other. White is 255, 65535 and 1.
struct Picture {
  const void* pixels = nullptr;
  Extent extent;
  int channels = 1;  // 1: grey; 3: red, green, blue; 4: those and alpha
  Depth depth = Depth::bytes;
  std::ptrdiff_t stride = 0;  // bytes, a multiple of those of a channel; 0 for rows without a gap
};

// The picture in grey bytes, row by row without a gap: what the programs see of a file that holds
// it. 16 bits and floats are rounded to 8 bits, floats below 0 and above 1 cut to that range; then
// what is transparent is laid over white; then colour is 0.299 R + 0.587 G + 0.114 B, rounded.
// Error for a picture that is none.
std::vector<std::uint8_t> grey(const Picture& picture);

// The same in red, green and blue bytes.
std::vector<std::uint8_t> rgb(const Picture& picture);

}  // namespace vorplex
