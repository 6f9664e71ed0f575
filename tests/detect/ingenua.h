#pragma once

#include <algorithm>
#include <cstddef>
#include <opencv2/core.hpp>
#include <random>
#include <utility>
#include <vector>

#include "detect/maxlocal.h"
#include "detect/piramide.h"

// Slow versions of the detector's steps, written apart from the program, to compare it with.

// The quicksort whose order among equals the program promises, on any items: `maior(a, b)` tells
// whether a comes before b. The depth of its recursion grows with the input.
template <class V, class MAIOR>
void quicksortLiteral(V& v, int l, int r, const MAIOR& maior) {
  int i = l;
  int j = r;
  const auto pivo = v[static_cast<std::size_t>((l + r) / 2)];
  const auto item = [&](int k) -> auto& {
    return v[static_cast<std::size_t>(k)];
  };
  do {
    while (maior(item(i), pivo)) ++i;
    while (maior(pivo, item(j))) --j;
    if (i <= j) {
      std::swap(item(i), item(j));
      ++i;
      --j;
    }
  } while (i <= j);
  if (l < j) quicksortLiteral(v, l, j, maior);
  if (i < r) quicksortLiteral(v, i, r, maior);
}

inline void ordenaLiteral(std::vector<MAXLOCAL>& v, int l, int r) {
  quicksortLiteral(v, l, r,
                   [](const MAXLOCAL& a, const MAXLOCAL& b) { return a.correl > b.correl; });
}

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

// The correlation at pixel (l, c) by its definition, the border of the image repeated outside it,
// and that of every pixel.
double somaEm(const cv::Mat_<float>& img, const cv::Mat_<float>& K, int l, int c);
cv::Mat_<double> somaDireta(const cv::Mat_<float>& img, const cv::Mat_<float>& K);

// The largest absolute difference; the sizes must agree.
double maiorDiferenca(const cv::Mat_<float>& a, const cv::Mat_<double>& b);

// Random weights whose positive part sums to 1 and negative part to -1, of odd side n >= 3.
cv::Mat_<float> pesosSorteados(std::mt19937& g, int n);

// Random values from 0 to 1, and random grey levels of a photograph brought to 0 to 1.
cv::Mat_<float> imagemSorteada(std::mt19937& g, int rows, int cols);
cv::Mat_<float> fotoSorteada(std::mt19937& g, int rows, int cols);

PIRAMIDE piramideDe(const cv::Mat_<float>& img, int maximo);
