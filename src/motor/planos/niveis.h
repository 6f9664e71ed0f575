#pragma once

#include <opencv2/core.hpp>

namespace motor {

// Levels of a pyramid as whole numbers, so that prefix sums are exact and equal regions have equal
// sums wherever they stand.
//
// A level of an 8-bit photograph is k/255, k whole. Its first reduction is k/65280, because the
// binomial filter has weights of 1/256; float rounding moves the values by less than 1.8e-7. Both
// are taken as those whole numbers, in 32 bits, less half of their range: a correlation does not
// change when the whole image does, and sums of both signs reach twice as far. Anything else is
// rounded to multiples of 2^-24 in double, which moves a value by at most 2^-25 = 3e-8.
//
// The mean over a region moves no more than the largest pixel error, so a correlation, the
// difference of two means, moves by at most 3.6e-7. Bringing the sums to float adds 4.2e-7 at most
// (two means of at most 1, each through a conversion and a product; a difference and a scaling),
// and the kernel's float weights differ from 1/P and 1/N by 6e-8 each. In all less than 1e-6.
enum class REPRESENTACAO {
  inteira,  // value * unidade is a whole number from 0 to `unidade`: integers
  real,     // double multiples of 1/unidade
  nenhuma   // not finite, or too large to be exact
};

// What an image value of 1 becomes: in a photograph, and in doubles (2^24).
inline constexpr double unidadeDeBytes = 255.0;
inline constexpr double unidadeReal = 16777216.0;

struct NIVEL {
  cv::Mat_<float> imagem;  // shares the level's pixels
  REPRESENTACAO tipo;
  double unidade;                 // what an image value of 1 becomes
  double desconto;                // what is taken off the whole numbers
  double maior;                   // largest absolute value of the image
  cv::Mat_<unsigned char> bytes;  // the whole numbers before that, where they are bytes
};

// A level taken as double multiples of 2^-24, whatever it is taken as now.
NIVEL comoReal(const NIVEL& nivel);

// Looks at a level and takes it as the simplest kind of numbers that it is made of.
NIVEL representa(const cv::Mat_<float>& imagem);

}  // namespace motor
