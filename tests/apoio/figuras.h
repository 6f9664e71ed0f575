#pragma once

#include <algorithm>
#include <opencv2/core.hpp>
#include <random>
#include <string>
#include <vector>

#include "detect/maxlocal.h"
#include "pim/converte.h"

// Pictures and detection lists for the tests.

// An integer from `de` to `ate`, both included.
int sorteia(std::mt19937& sorteio, int de, int ate);

// A colour image of random pixels, none of them a colour that the program draws in.
cv::Mat_<pim::VEC3B> fotoSorteada(std::mt19937& sorteio, int rows, int cols);

// Whether both images have the same size and the same pixels.
template <class PIXEL>
bool iguais(const cv::Mat_<PIXEL>& a, const cv::Mat_<PIXEL>& b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin());
}

// One string per row: '.' black, 'R' red, 'G' green, 'W' white, '?' any other colour.
std::vector<std::string> retrato(const cv::Mat_<pim::VEC3B>& img);

// The whole content of a binary PPM or PGM file of the image.
std::string ppm(const cv::Mat_<pim::VEC3B>& img);
std::string pgm(const cv::Mat_<unsigned char>& img);

// The text of a .ho1 or .ho2 file, all digits of every number kept.
std::string listaHo(const std::vector<MAXLOCAL>& v);
