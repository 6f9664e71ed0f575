#pragma once

#include <algorithm>
#include <cstddef>
#include <opencv2/core.hpp>
#include <random>
#include <vector>

#include "detect/maxlocal.h"
#include "detect/piramide.h"

// A small photograph for the detector: dark discs and squares of two sizes on a bright ground, with
// a fixed texture.
cv::Mat_<unsigned char> fotoDeGraos();

// Whether some detection has this letter, its centre within two pixels and its size within 15%.
bool achou(const std::vector<MAXLOCAL>& v, char forma, int li, int ci, double d1);

// Whether no record has a larger correlation than one before it.
inline bool emOrdem(const std::vector<MAXLOCAL>& v) {
  return std::is_sorted(v.begin(), v.end(),
                        [](const MAXLOCAL& a, const MAXLOCAL& b) { return a.correl > b.correl; });
}

inline bool iguais(const MAXLOCAL& a, const MAXLOCAL& b) {
  return a.correl == b.correl && a.forma == b.forma && a.li == b.li && a.ci == b.ci &&
         a.d1 == b.d1 && a.d2 == b.d2 && a.ang == b.ang;
}

// The first index at which the lists differ, or -1.
inline int primeiraDiferenca(const std::vector<MAXLOCAL>& a, const std::vector<MAXLOCAL>& b) {
  const std::size_t n = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < n; ++i) {
    if (!iguais(a[i], b[i])) return static_cast<int>(i);
  }
  return a.size() == b.size() ? -1 : static_cast<int>(n);
}

// What the correlations may differ from the direct sums, for weights that sum to 1.
inline constexpr double tolerancia = 1e-6;

// The largest absolute difference; infinite when the sizes differ.
double maiorDiferenca(const cv::Mat_<float>& a, const cv::Mat_<double>& b);

// Random weights whose positive part sums to 1 and negative part to -1, of odd side n >= 3.
cv::Mat_<float> pesosSorteados(std::mt19937& g, int n);

// Random values from 0 to 1, and random grey levels of a photograph brought to 0 to 1.
cv::Mat_<float> imagemSorteada(std::mt19937& g, int rows, int cols);
cv::Mat_<float> cinzaSorteada(std::mt19937& g, int rows, int cols);

PIRAMIDE piramideDe(const cv::Mat_<float>& img, int maximo);
