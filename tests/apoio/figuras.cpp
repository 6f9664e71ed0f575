#include "apoio/figuras.h"

#include <limits>
#include <sstream>

using pim::VEC3B;

int sorteia(std::mt19937& sorteio, int de, int ate) {
  return std::uniform_int_distribution<int>(de, ate)(sorteio);
}

cv::Mat_<VEC3B> fotoSorteada(std::mt19937& sorteio, int rows, int cols) {
  cv::Mat_<VEC3B> img(rows, cols);
  for (VEC3B& pixel : img) {
    for (int k = 0; k < 3; ++k) pixel[k] = static_cast<unsigned char>(sorteia(sorteio, 1, 254));
  }
  return img;
}

std::vector<std::string> retrato(const cv::Mat_<VEC3B>& img) {
  std::vector<std::string> linhas;
  for (int l = 0; l < img.rows; ++l) {
    std::string linha;
    for (int c = 0; c < img.cols; ++c) {
      const VEC3B& cor = img(l, c);
      linha += cor == VEC3B(0, 0, 0)         ? '.'
               : cor == VEC3B(0, 0, 255)     ? 'R'
               : cor == VEC3B(0, 255, 0)     ? 'G'
               : cor == VEC3B(255, 255, 255) ? 'W'
                                             : '?';
    }
    linhas.push_back(linha);
  }
  return linhas;
}

std::string ppm(const cv::Mat_<VEC3B>& img) {
  std::string bytes = cv::format("P6\n%d %d\n255\n", img.cols, img.rows);
  for (const VEC3B& pixel : img) {
    for (const int k : {2, 1, 0}) bytes += static_cast<char>(pixel[k]);
  }
  return bytes;
}

std::string pgm(const cv::Mat_<unsigned char>& img) {
  std::string bytes = cv::format("P5\n%d %d\n255\n", img.cols, img.rows);
  for (const unsigned char pixel : img) bytes += static_cast<char>(pixel);
  return bytes;
}

std::string listaHo(const std::vector<MAXLOCAL>& v) {
  std::ostringstream texto;
  texto.precision(std::numeric_limits<double>::max_digits10);
  texto << v.size() << "\n//correl f    l    c       d1       d2 deg\n";
  for (const MAXLOCAL& m : v) {
    texto << m.correl << ' ' << m.forma << ' ' << m.li << ' ' << m.ci << ' ' << m.d1 << ' ' << m.d2
          << ' ' << m.ang << '\n';
  }
  return texto.str();
}
