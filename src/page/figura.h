#pragma once

#include <cstddef>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "pim/converte.h"

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

// What each of so many pictures may take, so that the page of a usual batch stays below 40 MB.
std::size_t limiteDaFigura(std::size_t fotos);

// RFC 4648, with padding.
std::string emBase64(const std::vector<unsigned char>& bytes);
