#pragma once

#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "pim/codecs.h"

namespace pim {

// The portable bitmap, greymap and pixmap formats: P1 to P6, text and binary, up to 16 bits a
// sample. Read here and not by the image library so that plain photographs start fast.

// Whether the bytes begin as such a file does.
bool ehPnm(const std::vector<unsigned char>& bytes);

// Decodes the first image of the file to 8 bits: sample v of maximum m becomes 255 v / m, rounded.
// An error is returned, never raised; no more memory is taken than the data present can fill.
RESULTADO decodificaPnm(const std::vector<unsigned char>& bytes);

// Writes an 8-bit image as binary PGM (1 channel) or PPM (3 channels; blue, green, red in memory).
// pim::erro when the file can't be written.
void gravaPnm(const cv::Mat& img, const std::string& nome);

}  // namespace pim
