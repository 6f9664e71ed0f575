#pragma once

#include <opencv2/core.hpp>

// Pixels of other depths as the programs see them. Inline, since the codec module and the rest have
// no code in common.

namespace pim {

// The factor that brings full scale to 255.
inline double escalaPara8Bits(int profundidade) {
  switch (profundidade) {
    case CV_16U:
      return 255.0 / 65535.0;
    case CV_32F:
    case CV_64F:
      return 255.0;
    default:
      return 1.0;
  }
}

// Four channels, the last of them alpha, laid over white.
inline cv::Mat sobreBranco(const cv::Mat& img) {
  cv::Mat cor(img.size(), CV_8UC3);
  for (int l = 0; l < img.rows; ++l) {
    const auto* origem = img.ptr<cv::Vec4b>(l);
    auto* destino = cor.ptr<cv::Vec3b>(l);
    for (int c = 0; c < img.cols; ++c) {
      const int alfa = origem[c][3];
      for (int k = 0; k < 3; ++k) {
        const int soma = origem[c][k] * alfa + 255 * (255 - alfa);
        destino[c][k] = static_cast<unsigned char>((soma + 127) / 255);
      }
    }
  }
  return cor;
}

// An image of any depth and of 1, 3 or 4 channels as 8 bits of 1 or 3 channels; see pim::le. One
// that is so already shares its pixels.
inline cv::Mat para8BitsSemAlfa(const cv::Mat& img) {
  cv::Mat oito = img;
  // Brighter than white is white: values beyond the integers would wrap around to black.
  if (img.depth() == CV_32F || img.depth() == CV_64F) oito = cv::min(img, 1.0);
  if (img.depth() != CV_8U) oito.convertTo(oito, CV_8U, escalaPara8Bits(img.depth()));
  return oito.channels() == 4 ? sobreBranco(oito) : oito;
}

}  // namespace pim
