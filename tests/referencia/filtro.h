#pragma once

#include "filter/filtinter.h"

// The intersection filter in its plain form: masks redrawn at every turn, one reserved vector for
// each pixel. Same contracts as filter/filtinter.h.
namespace referencia {

void filtInter(std::vector<MAXLOCAL>& entrada, std::vector<MAXLOCAL>& saida, cv::Size tamanho,
               double minCorrCir, double maxInterCir, double minCorrRet, double maxInterRet,
               double minCorrQua, double maxInterQua, double minCorrEli, double maxInterEli);

}  // namespace referencia
