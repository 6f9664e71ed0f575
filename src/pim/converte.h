#pragma once

#include <limits>
#include <opencv2/core.hpp>

namespace pim {

using VEC3B = cv::Vec<unsigned char, 3>;  // blue, green, red

inline constexpr int maxint = std::numeric_limits<int>::max();

// b = a * escala + desloc for every pixel, computed in double and rounded once to float. `b` takes
// the size of `a` and is reused when it has it already.
void converte(const cv::Mat_<unsigned char>& a, cv::Mat_<float>& b, double escala, double desloc);

// `b` has the grey value of `a` in all three channels.
void converte(const cv::Mat_<unsigned char>& a, cv::Mat_<VEC3B>& b);

// 0.299 R + 0.587 G + 0.114 B of each pixel, rounded: what pim::le makes of a colour file that is
// read in grey. Greys keep their value.
void converte(const cv::Mat_<VEC3B>& a, cv::Mat_<unsigned char>& b);

// The next level of a Gaussian pyramid (Burt and Adelson 1983): `a` smoothed by the 5x5 binomial
// filter, then every second row and column kept, starting with the first. `b` has (rows+1)/2 by
// (cols+1)/2 pixels; pixel (r, c) of it is centred on (2r, 2c) of `a`.
void myPyrDown(const cv::Mat_<float>& a, cv::Mat_<float>& b);

// Nearest integer with ties to even, and truncation toward zero. Values beyond the range of int
// give its nearest end; NaN gives the lowest int.
int arredonda(double x);
int trunca(double x);

}  // namespace pim
