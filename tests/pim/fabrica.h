#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "pim/converte.h"

using BYTES = std::vector<unsigned char>;

BYTES deTexto(const std::string& texto);
void gravaBytesEm(const std::string& nome, const BYTES& bytes);

void anexa(BYTES& bytes, const BYTES& mais);

// The first `n` bytes.
BYTES corta(const BYTES& bytes, std::size_t n);

// Smooth colour and grey scenes in which no two corners look alike.
cv::Mat_<pim::VEC3B> cenaColorida(int rows, int cols);
cv::Mat_<unsigned char> cenaCinza(int rows, int cols);

// Random pixels: the worst case for any loss.
cv::Mat aleatoria(int rows, int cols, int tipo, unsigned semente);

BYTES codificada(const std::string& sufixo, const cv::Mat& img);

double maiorDiferenca(const cv::Mat& a, const cv::Mat& b);

// A PNG file put together by hand, stored without compression. `linhas` are the packed rows without
// the filter byte; `paleta` and `trns` are the contents of those chunks, left out when empty.
struct PNG {
  std::uint32_t cols = 0;
  std::uint32_t rows = 0;
  unsigned char bits = 8;
  unsigned char cor = 0;  // 0 grey, 2 RGB, 3 palette, 4 grey and alpha, 6 RGB and alpha
  std::vector<BYTES> linhas;
  BYTES paleta;
  BYTES trns;
};
BYTES montaPng(const PNG& png);

// The JPEG file with an Exif segment that holds nothing but the orientation mark (1 to 8).
BYTES comOrientacao(const BYTES& jpeg, unsigned char orientacao, bool littleEndian);

// An 8x8 CMYK JPEG of one colour, its inks stored inverted (255: no ink), as is usual.
BYTES jpegCmyk(const std::array<int, 4>& cmyk);
