#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "vorplex/detection.h"
#include "vorplex/image.h"
#include "vorplex/refine.h"

namespace vorplex {

// One measured grain, in pixels and square pixels, from the sizes of its shape.
struct Grain {
  Detection detection;
  double area = 0;
  double equivalent = 0;  // diameter of the circle of equal area
  double perimeter = 0;
  double lesser = 0;            // side or axis; the size that a sieve sees
  double greater = 0;           // side or axis
  double elongation = 1;        // greater / lesser
  bool touches_border = false;  // its outline reaches beyond the picture
  double d1_error = 0;          // standard errors of the detection's d1 and d2, 0 if not known
  double d2_error = 0;
};

// Measures detections, or the detections of refined grains, in their order. Error for letters other
// than c, q, r and e, numbers that are not finite, and sizes outside of 1e-5 to 1e6.
std::vector<Grain> measure(const Extent& picture, const std::vector<Detection>& detections);

// The same of refined grains, with the standard errors of their sizes.
std::vector<Grain> measure_refined(const Extent& picture, const std::vector<Refined>& grains);

enum class Unit { px, um, mm, cm, m, in };

// The side of a pixel.
struct Scale {
  double side = 1;
  Unit unit = Unit::px;
};

// Reads a scale: "0.05mm", "12.5 um". From 1e-9 to 1e9 of its unit.
Scale parse_scale(const std::string& text);

// Which diameter is the size of a grain.
enum class Size { equivalent, lesser, greater };

// How much a grain counts: 1, its area, or the volume of a sphere of its equivalent diameter.
enum class Weight { number, area, volume };

// What is said of the sizes of grains, in the unit of the scale. Empty where it can't be said: all
// of it without grains; ratios also where they would divide by zero.
struct Distribution {
  std::size_t grains = 0;
  // d50: the size that half of the weight lies below; linear between grains.
  std::optional<double> d5, d10, d16, d25, d30, d50, d60, d75, d84, d90, d95;
  std::optional<double> mean, deviation;  // weighted
  // The graphic measures of Folk and Ward (1957), in phi = -log2(size in mm, or in px without a
  // unit).
  std::optional<double> phi_mean, sorting, skewness, kurtosis;
  std::optional<double> uniformity;  // d60 / d10
  std::optional<double> curvature;   // d30^2 / (d10 d60)
};

// Error for a scale out of range and for grains whose sizes or area are not finite and above 0.
Distribution distribution(const std::vector<Grain>& grains, const Scale& scale = {},
                          Size size = Size::equivalent, Weight weight = Weight::number);

// The grains of a picture, and the scale of that picture.
struct Sample {
  std::vector<Grain> grains;
  Scale scale;
};

// 95 % intervals of what `distribution` says of the grains of all pictures together, for the sizes
// that grains have where the pictures were taken.
struct Intervals {
  Distribution low, high;    // the ends for each number, empty where nothing can be said
  std::size_t pictures = 0;  // with grains. With one, nothing is known of how places differ
};

// Draws grains and pictures again, some hundred times, from those that there are (bootstrap), and
// sizes within their standard errors; the same lists have the same intervals. They know of chance
// alone, and of nothing that would make all sizes wrong alike. Fewer than two grains have none.
// Error for pictures in different units, and as `distribution`.
Intervals intervals(const std::vector<Sample>& pictures, Size size = Size::equivalent,
                    Weight weight = Weight::number);

}  // namespace vorplex
