#pragma once

#include <opencv2/core.hpp>
#include <optional>
#include <vector>

// How the correlation with a shape kernel is done in a few additions.
//
// A shape kernel has three values: 1/P on the P pixels of its ring, -1/N on the N pixels of its
// core, 0 elsewhere. The correlation is therefore the mean of the image over the ring less its mean
// over the core, and all that is needed is the sum of the image over two regions: the core, and the
// whole (ring and core). A region's sum comes from prefix sums along the rows,
//
//   X(r, c) = image(r, c) + X(r, c-1),
//
// as X at the last pixel of each of its rows less X just before the first. For the region
//
//   . # # .      X(0,2) - X(0,0) + X(1,3) - X(1,0) + X(2,3) - X(2,0) + X(3,2) - X(3,0)
//   . # # #      (columns 0..3, rows 0..3)
//   . # # #
//   . # # .
//
// Terms of one sign that follow each other in equal steps collapse once more, in a plane of prefix
// sums of X along that direction d = (dl, dc):
//
//   Xd(r, c) = X(r, c) + Xd(r - dl, c - dc)
//
// The left side above is one run along (1, 0): - Xd(3,0) + Xd(-1,0) instead of four terms. A
// straight side of a turned rectangle is `dl` such runs interleaved, along the direction with small
// whole numbers nearest to it: a few terms, whatever its length.

// A step of a run, in rows and columns; dl is at least 1.
struct DIRECAO {
  int dl;
  int dc;

  bool operator==(const DIRECAO&) const = default;
};

// One addition (sinal +1) or subtraction (-1) of a plane's value `dl` rows below and `dc` columns
// right of the pixel. Plane 0 is X, plane i is X summed along direction i-1.
struct TERMO {
  int plano;
  int dl;
  int dc;
  int sinal;
};

// A part of a kernel as an image of its size, 1 inside and 0 outside.
using REGIAO = cv::Mat_<unsigned char>;

// The two regions of a three-valued kernel.
struct REGIOES {
  REGIAO tudo;  // ring and core
  REGIAO nucleo;
  int nAnel;    // P
  int nNucleo;  // N
};

// The regions of a kernel whose positive weights all equal 1/P and negative weights all -1/N (to
// 1e-6); nothing for any other kernel.
std::optional<REGIOES> regioesDoKernel(const cv::Mat_<float>& K);

// Directions whose planes save the regions together more terms than they cost to make. The best is
// taken first, then the best for what it leaves, and so on.
std::vector<DIRECAO> escolheDirecoes(const std::vector<REGIAO>& regioes);

// Terms whose signed sum is the sum of the image over `regiao`, the pixel evaluated lying on its
// pixel (rows/2, cols/2). Longer runs are taken first.
std::vector<TERMO> termosDaRegiao(const REGIAO& regiao, const std::vector<DIRECAO>& direcoes);
