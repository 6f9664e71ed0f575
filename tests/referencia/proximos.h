#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "detect/maxlocal.h"

// Sorting and removal of near duplicates in their plain form: whole records swapped, kept ones in a
// multimap by column of which a band is scanned. Same contracts as detect/ordenacao.h.
namespace referencia {

// The quicksort whose order among equals the program promises, on any items: `maior(a, b)` tells
// whether a comes before b. The two parts never meet again, so the smaller may go first: the result
// is the same and the depth stays below the logarithm of the length.
template <class ITENS, class MAIOR>
void quicksort(ITENS& v, std::ptrdiff_t l, std::ptrdiff_t r, const MAIOR& maior) {
  const auto item = [&](std::ptrdiff_t k) -> auto& {
    return v[static_cast<std::size_t>(k)];
  };
  while (l < r) {
    const auto pivo = item((l + r) / 2);
    std::ptrdiff_t i = l;
    std::ptrdiff_t j = r;
    do {
      while (maior(item(i), pivo)) ++i;
      while (maior(pivo, item(j))) --j;
      if (i <= j) std::swap(item(i++), item(j--));
    } while (i <= j);
    if (j - l < r - i) {
      quicksort(v, l, j, maior);
      l = i;
    } else {
      quicksort(v, i, r, maior);
      r = j;
    }
  }
}

void ordena(std::vector<MAXLOCAL>& v, int l, int r);
void eliminaProximo(const std::vector<MAXLOCAL>& entrada, std::vector<MAXLOCAL>& saida,
                    int maxDist);

}  // namespace referencia
