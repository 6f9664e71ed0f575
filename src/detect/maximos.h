#pragma once

#include <vector>

#include "detect/correlacao.h"
#include "detect/maxlocal.h"

// Appends to `maximos` a record for every pixel, at every level, whose best correlation is at least
// `minCorr` and not less than any of its eight neighbours (each pixel of a plateau is one), by
// level, row and column. The outermost ring of pixels of a level, and pixels that no kernel
// improved, are never taken.
//
// Level coordinates (r, c) become rows and columns of the full image as (r+1) 2^L - 1 and
// (c+1) 2^L - 1, an offset that all later stages rely on; sizes are multiplied by 2^L.
// pim::erro "Erro findMaxLocal: Nao dentro" when a maximum falls outside the maps or the image.
void findMaxLocal(const MELHORCORREL& melhorCorrel, const MELHORKERNEL& melhorKernel,
                  const std::vector<MASCARA>& kernels, std::vector<MAXLOCAL>& maximos,
                  double minCorr);
