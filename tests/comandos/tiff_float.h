#pragma once

#include <cstdint>
#include <cstring>
#include <map>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "apoio/pasta.h"

inline std::uint32_t numeroDoTiff(const std::string& bytes, std::size_t pos, std::size_t n) {
  std::uint32_t x = 0;
  for (std::size_t i = n; i-- > 0;) x = x << 8U | static_cast<unsigned char>(bytes.at(pos + i));
  return x;
}

// The pixels of an uncompressed TIFF of one 32-bit float channel, low byte first; empty for any
// other file.
inline cv::Mat_<float> leTiffFloat(const std::string& nome) {
  const std::string bytes = leTudo(nome);
  if (!bytes.starts_with(std::string("II*\0", 4))) return {};
  const std::size_t tabela = numeroDoTiff(bytes, 4, 4);
  std::map<std::uint32_t, std::vector<std::uint32_t>> campos;
  for (std::uint32_t i = 0; i < numeroDoTiff(bytes, tabela, 2); ++i) {
    const std::size_t pos = tabela + 2 + 12 * i;
    const std::size_t largura = numeroDoTiff(bytes, pos + 2, 2) == 3 ? 2 : 4;
    const std::uint32_t quantos = numeroDoTiff(bytes, pos + 4, 4);
    const std::size_t dados = largura * quantos <= 4 ? pos + 8 : numeroDoTiff(bytes, pos + 8, 4);
    for (std::uint32_t k = 0; k < quantos && largura * (k + 1) <= bytes.size(); ++k) {
      campos[numeroDoTiff(bytes, pos, 2)].push_back(
          numeroDoTiff(bytes, dados + largura * k, largura));
    }
  }
  const auto campo = [&](std::uint32_t qual) { return campos[qual].empty() ? 1 : campos[qual][0]; };
  // Bits, compression, channels, sample format (3: float).
  if (campo(258) != 32 || campo(259) != 1 || campo(277) != 1 || campo(339) != 3) return {};
  std::string pixels;
  for (std::size_t i = 0; i < campos[273].size(); ++i) {
    pixels += bytes.substr(campos[273][i], campos[279].at(i));
  }
  cv::Mat_<float> img(static_cast<int>(campo(257)), static_cast<int>(campo(256)));
  if (pixels.size() != img.total() * sizeof(float)) return {};
  std::memcpy(img.data, pixels.data(), pixels.size());
  return img;
}
