#pragma once

#include <vector>

#include "detect/maxlocal.h"

// Sorting and removal of near duplicates in their plain form: whole records swapped, kept ones in a
// multimap by column of which a band is scanned. Same contracts as detect/ordenacao.h.
namespace referencia {

void ordena(std::vector<MAXLOCAL>& v, int l, int r);
void eliminaProximo(const std::vector<MAXLOCAL>& entrada, std::vector<MAXLOCAL>& saida,
                    int maxDist);

}  // namespace referencia
