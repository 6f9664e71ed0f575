#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "detect/niveis.h"
#include "detect/piramide.h"
#include "kernels/mascara.h"

// Per pyramid level, for a group of kernels: the highest correlation at each pixel (-1 where no
// kernel exceeded it) and the index in the kernel set of the kernel that reached it (-1 for none).
using MELHORCORREL = std::vector<cv::Mat_<float>>;
using MELHORKERNEL = std::vector<cv::Mat_<int>>;

// Correlates levels 0 to `ultimo` of the pyramid with `kernel` into the entries of `saida`, which
// gets one image per level, of its size. The kernel is not flipped; its centre is the anchor, and
// pixels outside the level repeat its border. Entries above `ultimo` keep arbitrary content.
void correlaPiramide(const PIRAMIDE& piramide, const cv::Mat_<float>& kernel,
                     std::vector<cv::Mat_<float>>& saida, int ultimo);

// Fills both lists for the kernels with indices `primeiro` to `ultimo` inclusive, each applied to
// levels 0 to its sPir. The lower index wins a tie. An empty range gives lists of -1.
//
// Correlations differ from exact sums by less than 1e-6 (niveis.h), and equal neighbourhoods get
// equal values. `niveis` are the prepared levels of the pyramid, for a run with many groups.
void correlaGrupo(const PIRAMIDE& piramide, const std::vector<MASCARA>& kernels, int primeiro,
                  int ultimo, MELHORCORREL& melhorCorrel, MELHORKERNEL& melhorKernel);
void correlaGrupo(const NIVEIS& niveis, const std::vector<MASCARA>& kernels, int primeiro,
                  int ultimo, MELHORCORREL& melhorCorrel, MELHORKERNEL& melhorKernel);
