#pragma once

#include <string>
#include <vector>

namespace vorplex {

// A shape found in a picture. Sizes are full: diameters, sides and axes, never halves.
struct Detection {
  float correlation = 0;  // the larger the better; 1 for a black shape on white
  char shape = 'c';       // 'c' circle, 'q' square, 'r' rectangle, 'e' ellipse
  double row = 0;         // of the centre; whole numbers from a search
  double column = 0;
  double d1 = 0;     // first size, along the angle
  double d2 = 0;     // second size; circles and squares don't use it
  double angle = 0;  // degrees; circles don't use it
};

// Reads a .ho1 or .ho2 file of the programs. It may hold any letters and numbers, also centres
// outside of the picture that it belongs to.
std::vector<Detection> read_ho(const std::string& path);

// Writes such a file. It keeps 6 decimals of correlations and 5 of sizes; rows, columns and angles
// become whole numbers. Error for another letter than those four and for numbers that are not
// finite.
void write_ho(const std::vector<Detection>& detections, const std::string& path);

}  // namespace vorplex
