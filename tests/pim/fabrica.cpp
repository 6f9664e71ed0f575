#include "fabrica.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <opencv2/imgcodecs.hpp>
#include <random>

namespace {

void anexa32(BYTES& bytes, std::uint32_t v) {
  for (int d = 24; d >= 0; d -= 8) bytes.push_back(static_cast<unsigned char>(v >> d));
}

std::uint32_t crc32(const BYTES& bytes) {
  std::uint32_t crc = 0xFFFFFFFFU;
  for (const unsigned char b : bytes) {
    crc ^= b;
    for (int k = 0; k < 8; ++k) crc = (crc >> 1U) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
  }
  return ~crc;
}

void anexaBloco(BYTES& png, const std::string& tipo, const BYTES& dados) {
  anexa32(png, static_cast<std::uint32_t>(dados.size()));
  BYTES corpo = deTexto(tipo);
  anexa(corpo, dados);
  anexa(png, corpo);
  anexa32(png, crc32(corpo));
}

// A zlib stream of one stored block (at most 65535 bytes).
BYTES zlibSemCompressao(const BYTES& dados) {
  const auto n = static_cast<unsigned>(dados.size());
  BYTES z = {0x78, 0x01, 0x01};
  for (const unsigned v : {n, ~n}) {
    z.push_back(static_cast<unsigned char>(v));
    z.push_back(static_cast<unsigned char>(v >> 8U));
  }
  anexa(z, dados);
  std::uint32_t a = 1;
  std::uint32_t b = 0;
  for (const unsigned char x : dados) {
    a = (a + x) % 65521;
    b = (b + a) % 65521;
  }
  anexa32(z, (b << 16U) | a);
  return z;
}

// Collects the bits of JPEG coded data, most significant first, with byte stuffing.
struct BITS {
  BYTES bytes;
  unsigned acumulado = 0;
  int n = 0;

  void poe(unsigned v, int quantos) {
    for (int k = quantos - 1; k >= 0; --k) {
      acumulado = (acumulado << 1U) | ((v >> static_cast<unsigned>(k)) & 1U);
      if (++n < 8) continue;
      bytes.push_back(static_cast<unsigned char>(acumulado));
      if (acumulado == 0xFF) bytes.push_back(0);
      acumulado = 0;
      n = 0;
    }
  }
  void completa() {
    while (n != 0) poe(1, 1);
  }
};

// A block of one level: category (4-bit code) and value of the DC term, then the end of the block.
void poeBloco(BITS& bits, int dc) {
  unsigned categoria = 0;
  while ((std::abs(dc) >> categoria) != 0) ++categoria;
  bits.poe(categoria, 4);
  const int valor = dc >= 0 ? dc : dc + (1 << categoria) - 1;
  bits.poe(static_cast<unsigned>(valor), static_cast<int>(categoria));
  bits.poe(0, 1);
}

}  // namespace

BYTES deTexto(const std::string& texto) {
  return {texto.begin(), texto.end()};
}

void anexa(BYTES& bytes, const BYTES& mais) {
  std::copy(mais.begin(), mais.end(), std::back_inserter(bytes));
}

void gravaBytesEm(const std::string& nome, const BYTES& bytes) {
  std::ofstream f(nome, std::ios::binary);
  std::copy(bytes.begin(), bytes.end(), std::ostreambuf_iterator<char>(f));
}

BYTES corta(const BYTES& bytes, std::size_t n) {
  return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(n)};
}

cv::Mat_<pim::VEC3B> cenaColorida(int rows, int cols) {
  cv::Mat_<pim::VEC3B> img(rows, cols);
  for (int l = 0; l < rows; ++l) {
    for (int c = 0; c < cols; ++c) {
      img(l, c) = pim::VEC3B(static_cast<unsigned char>(l * 255 / rows),
                             static_cast<unsigned char>(c * 255 / cols),
                             static_cast<unsigned char>(255 - (l + c) * 255 / (rows + cols)));
    }
  }
  return img;
}

cv::Mat_<unsigned char> cenaCinza(int rows, int cols) {
  cv::Mat_<unsigned char> img(rows, cols);
  for (int l = 0; l < rows; ++l) {
    for (int c = 0; c < cols; ++c) {
      img(l, c) = static_cast<unsigned char>((2 * l * 255 / rows + c * 255 / cols) / 3);
    }
  }
  return img;
}

cv::Mat aleatoria(int rows, int cols, int tipo, unsigned semente) {
  std::mt19937 sorteio(semente);
  cv::Mat img(rows, cols, tipo);
  for (int l = 0; l < rows; ++l) {
    std::generate_n(img.ptr(l), static_cast<std::size_t>(cols) * img.elemSize(),
                    [&] { return static_cast<unsigned char>(sorteio()); });
  }
  return img;
}

BYTES codificada(const std::string& sufixo, const cv::Mat& img) {
  BYTES bytes;
  cv::imencode("." + sufixo, img, bytes);
  return bytes;
}

double maiorDiferenca(const cv::Mat& a, const cv::Mat& b) {
  return a.size() == b.size() && a.type() == b.type() ? cv::norm(a, b, cv::NORM_INF) : 1e9;
}

BYTES montaPng(const PNG& png) {
  BYTES cabecalho;
  anexa32(cabecalho, png.cols);
  anexa32(cabecalho, png.rows);
  anexa(cabecalho, {png.bits, png.cor, 0, 0, 0});
  BYTES cru;
  for (const BYTES& linha : png.linhas) {
    cru.push_back(0);
    anexa(cru, linha);
  }
  BYTES arquivo = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  anexaBloco(arquivo, "IHDR", cabecalho);
  if (!png.paleta.empty()) anexaBloco(arquivo, "PLTE", png.paleta);
  if (!png.trns.empty()) anexaBloco(arquivo, "tRNS", png.trns);
  anexaBloco(arquivo, "IDAT", zlibSemCompressao(cru));
  anexaBloco(arquivo, "IEND", {});
  return arquivo;
}

BYTES comOrientacao(const BYTES& jpeg, unsigned char orientacao, bool littleEndian) {
  BYTES tiff;
  if (littleEndian) {
    tiff = {'I', 'I', 42, 0, 8, 0, 0, 0, 1, 0, 0x12, 0x01, 3, 0, 1, 0, 0, 0, orientacao, 0, 0, 0};
  } else {
    tiff = {'M', 'M', 0, 42, 0, 0, 0, 8, 0, 1, 0x01, 0x12, 0, 3, 0, 0, 0, 1, 0, orientacao, 0, 0};
  }
  anexa(tiff, {0, 0, 0, 0});  // no further directory
  BYTES exif = {'E', 'x', 'i', 'f', 0, 0};
  anexa(exif, tiff);
  BYTES arquivo = {0xFF, 0xD8, 0xFF, 0xE1, 0, static_cast<unsigned char>(exif.size() + 2)};
  anexa(arquivo, exif);
  anexa(arquivo, BYTES(jpeg.begin() + 2, jpeg.end()));
  return arquivo;
}

BYTES jpegCmyk(const std::array<int, 4>& cmyk) {
  BYTES arquivo = {0xFF, 0xD8, 0xFF, 0xEE, 0, 14, 'A', 'd', 'o', 'b', 'e', 0, 100, 0, 0, 0, 0, 0};
  anexa(arquivo, {0xFF, 0xDB, 0, 67, 0});
  anexa(arquivo, BYTES(64, 8));  // the DC term counts eighths of a grey level
  anexa(arquivo, {0xFF, 0xC0, 0, 20, 8, 0, 8, 0, 8, 4});
  for (unsigned char k = 1; k <= 4; ++k) anexa(arquivo, {k, 0x11, 0});
  // DC: the twelve categories as 4-bit codes. AC: nothing but the end of the block, one bit.
  anexa(arquivo, {0xFF, 0xC4, 0, 31, 0x00, 0, 0, 0, 12, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
  for (unsigned char k = 0; k < 12; ++k) arquivo.push_back(k);
  anexa(arquivo, {0xFF, 0xC4, 0, 20, 0x10, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
  anexa(arquivo, {0xFF, 0xDA, 0, 14, 4});
  for (unsigned char k = 1; k <= 4; ++k) anexa(arquivo, {k, 0x00});
  anexa(arquivo, {0, 63, 0});
  BITS bits;
  for (const int nivel : cmyk) poeBloco(bits, nivel - 128);
  bits.completa();
  anexa(arquivo, bits.bytes);
  anexa(arquivo, {0xFF, 0xD9});
  return arquivo;
}
