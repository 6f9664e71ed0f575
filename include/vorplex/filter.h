#pragma once

#include <vector>

#include "vorplex/detection.h"
#include "vorplex/image.h"

namespace vorplex {

// What a detection must satisfy to be kept.
struct Threshold {
  double min_correlation = 0.1;
  double max_overlap = 0.3;  // share of its pixels, 0 to 1, that may lie on kept ones or outside
};

// For each shape. Detections of other letters are always kept.
struct Thresholds {
  Threshold circle;
  Threshold square;
  Threshold rectangle;
  Threshold ellipse;
};

// The detections, given best first, that pass their thresholds and take no kept one over its own,
// in the same order: the list that `Vorplex filtra` writes. They are compared pixel by pixel, with
// centres rounded to whole pixels, and returned unchanged. `picture` is the extent of the picture
// that they were found in. Error for shapes above 16383 pixels.
std::vector<Detection> filter(const Extent& picture, const std::vector<Detection>& detections,
                              const Thresholds& thresholds = {});

}  // namespace vorplex
