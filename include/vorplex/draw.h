#pragma once

#include <cstdint>
#include <vector>

#include "vorplex/detection.h"
#include "vorplex/image.h"
#include "vorplex/picture.h"

namespace vorplex {

enum class Outline {
  thin,   // a pixel wide, red, of the shape as the search draws it, at whole pixels
  bold,   // the same three pixels wide
  exact,  // a smoothed line through fractions of a pixel, in a colour for each shape
};

enum class Centre { none, thin, bold };  // a green pixel, a block of 3 by 3 pixels

struct DrawOptions {
  Outline outline = Outline::thin;
  bool indices = false;  // places in the list, from 0, red on white
  Centre centre = Centre::none;
};

// The picture in red, green and blue bytes, row by row, with the detections drawn over it: with
// thin and bold outlines what `Vorplex traca` draws, with exact ones what `vorplex-apura` draws.
// Error for a picture that is none, and for a shape that can't be drawn: above 16383 pixels, or
// with exact outlines one that `measure` would refuse.
std::vector<std::uint8_t> draw(const Picture& picture, const std::vector<Detection>& detections,
                               const DrawOptions& options = {});

// A picture of that extent, row by row, of 0 where there is no detection and 1, 2, 3 ... in the
// pixels whose centres the first, second, third ... detection holds, by its sizes and with
// fractions of a pixel. Where several do, the first has the pixel. Error for an extent out of range
// and for shapes that `measure` would refuse.
std::vector<std::int32_t> labels(const Extent& picture, const std::vector<Detection>& detections);

}  // namespace vorplex
