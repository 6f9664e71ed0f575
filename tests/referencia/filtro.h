#pragma once

#include "filter/filtinter.h"

// The intersection filter in its plain form: masks redrawn at every turn, one reserved vector for
// each pixel. Same contracts as filter/filtinter.h.
namespace referencia {

void filtInter(const std::vector<MAXLOCAL>& entrada, std::vector<MAXLOCAL>& saida, cv::Size tamanho,
               const LIMIARES& limiares);

}  // namespace referencia
