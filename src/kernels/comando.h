#pragma once

#include <opencv2/core.hpp>

// Sub-program `kernel kernel.cfg kernel.pgm`: lists the kernels that a configuration produces and
// draws them in one picture, a column for each run of scales. argv[0] is the sub-program's name.
void Kernel(int argc, char** argv);

// G gets the size of K and, per pixel, 0 where K < 0, 128 where K = 0 and 255 where K > 0. Its
// buffer is kept when it has that size already.
void kernelParaCinza(const cv::Mat_<float>& K, cv::Mat_<unsigned char>& G);
