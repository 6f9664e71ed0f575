#pragma once

#include <cstddef>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "pim/converte.h"

namespace page {

// Pictures for the page: reduced, as JPEG, in base64.

// The picture with its longer side at most `lado` pixels, by averaging the pixels that each new one
// covers; unchanged when it is small enough. Neither side falls below one pixel.
cv::Mat_<pim::VEC3B> reduz(const cv::Mat_<pim::VEC3B>& img, int lado);

// A JPEG file of the picture; `qualidade` from 1 to 100. pim::erro when the picture is empty.
std::vector<unsigned char> emJpeg(const cv::Mat_<pim::VEC3B>& img, int qualidade);

inline constexpr int ladoDaFigura = 1600;
inline constexpr int ladoDaMiniatura = 160;

// A JPEG of at most `limite` bytes: 1600 pixels and quality 80, and if that is too much less of
// both, down to 200 pixels, at which the limit is exceeded if need be.
std::vector<unsigned char> emJpegAte(const cv::Mat_<pim::VEC3B>& img, std::size_t limite);

// A photograph as the page holds it: JPEG files, the second of at most 160 pixels.
struct FIGURA {
  std::vector<unsigned char> jpeg;
  std::vector<unsigned char> miniatura;
};

// Reads a picture, as pim::le, and leaves its FIGURA, the first of at most `limite` bytes if
// possible, in the files `nome` and `nome`.mini. pim::erro when it can't be read or they can't be
// written.
void impFigura(const std::string& arquivo, std::size_t limite, const std::string& nome);

// What impFigura left; pim::erro when it can't be read.
FIGURA leFigura(const std::string& nome);

// Plain grey, for a photograph of this size whose picture is lost.
FIGURA figuraVazia(cv::Size tamanho);

// What each of so many pictures may take, so that the page of a usual batch stays below 40 MB.
std::size_t limiteDaFigura(std::size_t fotos);

// RFC 4648, with padding.
std::string emBase64(const std::vector<unsigned char>& bytes);

}  // namespace page
