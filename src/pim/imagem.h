#pragma once

#include <opencv2/core.hpp>
#include <string>

#include "pim/converte.h"

namespace pim {

// Reads an image file into `img`, which is replaced. The format is recognised by the content,
// whatever the name: PGM and PPM (binary and text), PNG, JPEG, TIFF, BMP, MAT-files and what else
// the image library reads.
//   colour to grey  0.299 R + 0.587 G + 0.114 B, rounded
//   16 bits         scaled so that 65535 becomes 255, rounded
//   float           0 to 1 becomes 0 to 255, rounded and clipped
//   alpha           laid over white
//   JPEG            turned upright as its orientation mark says
//   MAT-file        the first two-dimensional real numeric array; its elements must be integers
//                   from 0 to 255 and become pixels unchanged
// pim::erro naming the file when it can't be opened, is not an image, or is cut short.
void le(cv::Mat_<unsigned char>& img, const std::string& nome);
void le(cv::Mat_<VEC3B>& img, const std::string& nome);

// Writes `img` in the format given by the suffix of `nome`, in either letter case: pgm, ppm, pnm,
// png, jpg, tif, bmp and what else the image library writes. A pgm is always grey and a ppm always
// colour; the image is converted. pim::erro naming the file when the image is empty, the suffix is
// not known or the file can't be written whole.
void imp(const cv::Mat_<unsigned char>& img, const std::string& nome);
void imp(const cv::Mat_<VEC3B>& img, const std::string& nome);

// Writes the float values unchanged as a one-channel 32-bit float TIFF, uncompressed. The suffix
// must be img, tif or tiff.
void imp(const cv::Mat_<float>& img, const std::string& nome);

}  // namespace pim
