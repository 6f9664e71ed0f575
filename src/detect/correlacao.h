#pragma once

#include <memory>
#include <opencv2/core.hpp>
#include <vector>

#include "detect/piramide.h"
#include "kernels/mascara.h"
#include "motor/motor.h"

// Per pyramid level, for a group of kernels: the highest correlation at each pixel (-1 where no
// kernel exceeded it) and the index in the kernel set of the kernel that reached it (-1 for none).
using MELHORCORREL = std::vector<cv::Mat_<float>>;
using MELHORKERNEL = std::vector<cv::Mat_<int>>;

// Correlates levels 0 to `ultimo` of the pyramid with `kernel` into the entries of `saida`, which
// gets one image per level, of its size. The kernel is not flipped; its centre is the anchor, and
// pixels outside the level repeat its border. Entries above `ultimo` keep arbitrary content. Part
// of the library for other programs; no command calls it.
void correlaPiramide(const PIRAMIDE& piramide, const cv::Mat_<float>& kernel,
                     std::vector<cv::Mat_<float>>& saida, int ultimo);

// The levels of a pyramid prepared for the engine, once for all groups of a run. They share the
// pyramid's pixels.
using NIVEIS = std::vector<std::shared_ptr<const motor::NIVEL>>;

NIVEIS preparaNiveis(const PIRAMIDE& piramide);

// Fills both lists for the kernels with indices `primeiro` to `ultimo` inclusive, each applied to
// levels 0 to its sPir. The lower index wins a tie. An empty range gives lists of -1. How exact
// correlations are, and when `pausa` is called, motor.h says.
void correlaGrupo(const PIRAMIDE& piramide, const std::vector<MASCARA>& kernels, int primeiro,
                  int ultimo, MELHORCORREL& melhorCorrel, MELHORKERNEL& melhorKernel);
void correlaGrupo(const NIVEIS& niveis, const std::vector<MASCARA>& kernels, int primeiro,
                  int ultimo, MELHORCORREL& melhorCorrel, MELHORKERNEL& melhorKernel,
                  const pim::PAUSA& pausa = {});
