#pragma once

#include <opencv2/core.hpp>
#include <optional>
#include <vector>

namespace motor {

// A shape kernel has three values: 1/P on the P pixels of its ring, -1/N on the N pixels of its
// core, 0 elsewhere. The correlation is therefore the mean of the image over the ring less its mean
// over the core, and all that is needed is the sum of the image over two regions: the core, and the
// whole (ring and core).

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

// Consecutive ranges of rows that make up the kernel, each with at most `maximo` pixels of the ring
// and of the core; none when a single row has more.
std::vector<cv::Range> divideLinhas(const REGIOES& r, int maximo);

// The region without its pixels in other rows.
REGIAO soLinhas(const REGIAO& regiao, const cv::Range& linhas);

// Consecutive ranges of columns that make up the kernel, each with at most `maximo` stretches of
// pixels down its columns, of whole and of core; none when a single column has more.
std::vector<cv::Range> divideColunas(const REGIOES& r, int maximo);

// The region without its pixels in other columns.
REGIAO soColunas(const REGIAO& regiao, const cv::Range& colunas);

// A piece of a row: its pixels after column `antes` up to `ultima`.
struct PEDACO {
  int linha;
  int antes;
  int ultima;
};

// The region in pieces of at most `maximo` pixels, rows and columns counted from its pixel
// (rows/2, cols/2).
std::vector<PEDACO> pedacosDaRegiao(const REGIAO& regiao, int maximo);

// One side of a region: where a stretch of pixels ends in each of some consecutive rows.
struct LADO {
  int sinal;                // +1: at the last pixel of the stretch; -1: just before the first
  int linha;                // row of the first end
  std::vector<int> coluna;  // one end a row
};

// The sides of a region, rows and columns counted from its pixel (rows/2, cols/2). The sum of an
// image over the region is the sum over all ends of sinal * X(end), X being the image summed along
// its rows from the left.
std::vector<LADO> ladosDaRegiao(const REGIAO& regiao);

}  // namespace motor
