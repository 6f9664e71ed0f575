#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "pim/codecs.h"

namespace pim {

// The operations of `CODECS`; see there.
bool reconheceImagem(const std::string& nome);
RESULTADO decodificaImagem(const std::vector<unsigned char>& bytes);
bool codificaImagem(const std::string& tipo, const cv::Mat& img, std::vector<unsigned char>& bytes);
RESULTADO leArquivoMat(const std::string& nome);

// The largest file that the image library takes: it counts bytes in an int.
inline constexpr std::size_t maiorCodificada = 2147483647;

// `decodificaImagem` with another limit; an error for a file of more than `maior` bytes.
RESULTADO decodificaAte(const std::vector<unsigned char>& bytes, std::size_t maior);

// Whether a JPEG file reaches its end-of-image mark: the decoder fills a missing end with grey
// without a word. Follows the segments, and in the coded data skips stuffed bytes and restarts
// (ITU-T T.81, B.1).
bool jpegInteiro(const std::vector<unsigned char>& bytes);

}  // namespace pim
