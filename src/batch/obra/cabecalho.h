#pragma once

#include <opencv2/core.hpp>
#include <string>

namespace batch {

// The size of a picture as the first bytes of its file tell it: PGM, PPM, PBM, PNG, JPEG, BMP and
// TIFF. A guess for planning memory and time: the picture itself may yet turn out unreadable, or
// lie on its side. Empty when it can't be told, and for what is no regular file.
cv::Size tamanhoNoCabecalho(const std::string& nome);

}  // namespace batch
