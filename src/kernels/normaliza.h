#pragma once

#include <opencv2/core.hpp>

// Zero-mean correlation kernels: -1 over the shape, +1 over a ring around it that reaches sqrt(2)
// times its size, 0 elsewhere, then scaled by `NegPosUm` so that the positive weights sum to +1
// and the negative ones to -1. A uniform region correlates to 0, a shape darker than its surround
// positively, and a black shape on white with exactly 1.
//
// Shapes, sizes (pixels) and angles (degrees) are those of formas.h. The kernel is square with an
// odd side n, centred at (n/2, n/2). Its buffer is kept when K already has that size. pim::erro
// naming the shape when a size is not finite or the side exceeds `maiorLadoKernel`.

inline constexpr int maiorLadoKernel = 8191;  // pixels; a float image of this side takes 256 MiB

// The side of the kernel of a shape of one of the four letters; infinite when a size that counts is
// not finite. May be below 1, or larger than can be drawn.
double ladoDoKernel(char forma, double d1, double d2);

// `ladoDoKernel` as an integer; pim::erro naming the shape when it exceeds `maiorLadoKernel`.
int exigeLadoDoKernel(char forma, double d1, double d2);

// Half of a full size, in whole pixels: that of the core, and that of the ring's outer edge.
int meioNucleo(double d);
int meioAnel(double d);

// Diameters that round (ties to even) to 1..4 are fixed tables in a fresh buffer. A diameter that
// rounds to 0 or less leaves K as it is before it is normalised.
void kernelCirculo(cv::Mat_<float>& K, double d);
void kernelQuadrado(cv::Mat_<float>& K, double d, double ang);
void kernelRetangulo(cv::Mat_<float>& K, double d1, double d2, double ang);
void kernelElipse(cv::Mat_<float>& K, double d1, double d2, double ang);

// Ends in the error of a kernel without ring or core.
[[noreturn]] void recusaKernel();

// Divides the positive elements by their sum and the others by minus theirs, in place; sums and
// quotients in double. pim::erro "Erro: NegPosUm divisao zero" when either sum is not above 0.
void NegPosUm(cv::Mat_<float>& K);
