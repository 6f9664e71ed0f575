#pragma once

#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "vorplex/detection.h"
#include "vorplex/image.h"

namespace vorplex {

struct RefineOptions {
  std::string shapes = "cqre";  // letters that a grain may get
  double min_size = 0;          // diameters of equal area that a grain may have, pixels
  double max_size = std::numeric_limits<double>::infinity();
  double max_overlap =
      0.3;  // share of its area, 0 to 1, that a grain may have in common with others
  double sensitivity = 0.5;  // 0: few grains, and sure ones; 1: many
  bool keep_shapes = false;  // grains keep the letters of their detections
  int threads = 1;           // 1 to 1024; the result doesn't depend on it
};

// A grain, measured to fractions of a pixel. Errors are standard errors; what a shape doesn't have,
// such as the angle of a circle, has error 0.
struct Refined {
  Detection detection;  // d1 at least d2; angle from 0 to 180, of squares from 0 to 90
  double support = 0;   // estimated probability that it is a grain
  double contrast = 0;  // mean grey around it less mean grey inside, 0 to 1
  double row_error = 0;
  double column_error = 0;
  double d1_error = 0;
  double d2_error = 0;
  double angle_error = 0;  // degrees
};

// Fits detections, as they come from a search and not yet filtered, to the edges of the picture,
// and chooses those that are grains, by decreasing support. Grains are darker than their ground.
// Detections that are no shapes of at least 1 pixel with their centre in the picture are left out.
// About 24 bytes a pixel. Error for options out of range, Cancelled when `keep_going` returns
// false: it is called every few milliseconds in the thread that called, and what it throws arrives
// as it is.
std::vector<Refined> refine(const Image& image, const std::vector<Detection>& detections,
                            const RefineOptions& options = {},
                            const std::function<bool()>& keep_going = {});

}  // namespace vorplex
