#pragma once

#include <opencv2/core.hpp>

namespace kernels {

// The shape that a kernel image shows: enough to draw it when it is wanted, as the image grows with
// the square of the size. Letter, sizes (pixels) and angle (degrees) are those of formas.h.
struct MOLDE {
  char forma = 0;
  double d1 = 0;
  double d2 = 0;
  double ang = 0;
};

// Draws the kernel with the function of its letter (normaliza.h), over what K holds when that has
// its size. pim::erro where that function ends in it.
void desenhaKernel(cv::Mat_<float>& K, const MOLDE& m);

// Ends in the error of `desenhaKernel` when that would end in one, but draws nothing. A disc that
// rounds to nothing is an error here, as there with an empty K.
void exigeKernel(const MOLDE& m);

// The side of the image that `desenhaKernel` gives, pixels.
int ladoDaImagem(const MOLDE& m);

// Whether drawing it gives a fresh image even when K has its size: the small discs do.
bool tomaImagemNova(const MOLDE& m);

}  // namespace kernels
