#pragma once

#include <opencv2/core.hpp>

#include "kernels/molde.h"

// One kernel of the kernel set: a shape at one angle and scale. Copies share the images, which may
// have been left out (lekernels.h).
struct MASCARA {
  char forma = 0;          // 'c' circle, 'q' square, 'r' rectangle, 'e' ellipse
  double d1 = 0;           // first full size at this scale, pixels
  double d2 = 0;           // second full size; equal to d1 for 'c' and 'q'
  double ang = 0;          // degrees, clockwise on the screen; 0 for circles
  double esc = 0;          // scale: size here / size in the file
  double escPir = 0;       // the largest scale that the pyramid reaches with it
  int sPir = 0;            // it is applied to pyramid levels 0 to sPir
  int inic = 0;            // place in its run of scales: 0 first, 1 middle, 2 last
  cv::Mat_<float> kernel;  // zero-mean weights, see normaliza.h
  // Part of the record for programs that use the library; no command looks at them.
  cv::Mat_<unsigned char> contorno;  // outline, 0 on 255, see formas.h
  cv::Mat_<unsigned char> mascara;   // filled shape, 0 on 255
  kernels::MOLDE molde;              // what `kernel` shows: this shape, or that of a later record
                                     // that shares the image; no letter in records made by hand
};

namespace kernels {

// The kernel's image; drawn afresh from `molde` when it was left out.
cv::Mat_<float> imagemDoKernel(const MASCARA& m);

}  // namespace kernels
