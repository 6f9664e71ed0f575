#pragma once

#include "detect/correlacao.h"

// Correlation in its plain form: the general filter for each kernel and level, then a pass that
// keeps the better values. Same contract as correlaGrupo of detect/correlacao.h.
namespace referencia {

void correlaGrupo(const PIRAMIDE& piramide, const std::vector<MASCARA>& kernels, int primeiro,
                  int ultimo, MELHORCORREL& melhorCorrel, MELHORKERNEL& melhorKernel);

}  // namespace referencia
