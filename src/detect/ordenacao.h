#pragma once

#include <cstddef>
#include <vector>

#include "detect/maxlocal.h"
#include "pim/pausa.h"

// Sorts elements l to r inclusive by decreasing correlation, in place. The order that it leaves
// among equal correlations decides which of two equally good duplicates survives, so the algorithm
// is fixed: Hoare's partition about the middle element. r < l, as for an empty list, fails the
// assertion "l<=r".
void ordena(std::vector<MAXLOCAL>& v, int l, int r);
void ordena(std::vector<MAXLOCAL>& v, int l, int r, const pim::PAUSA& pausa);

// Replaces `saida` by the records of `entrada` (ordered by decreasing correlation) that have no
// record kept before them of the same letter within `maxDist` pixels in both rows and columns,
// again in decreasing order. A negative distance removes nothing. An empty list ends in the
// assertion of `ordena`.
void eliminaProximo(const std::vector<MAXLOCAL>& entrada, std::vector<MAXLOCAL>& saida,
                    int maxDist);
void eliminaProximo(const std::vector<MAXLOCAL>& entrada, std::vector<MAXLOCAL>& saida, int maxDist,
                    const pim::PAUSA& pausa);

// The most records that `ordena` can number.
inline constexpr std::size_t maximoDeMaximos = 2147483647;

// Appends every record of `novos` to `v`, in order. pim::erro when there would be more than
// `maximo`.
void acrescenta(std::vector<MAXLOCAL>& v, const std::vector<MAXLOCAL>& novos,
                std::size_t maximo = maximoDeMaximos);
