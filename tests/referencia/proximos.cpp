#include "referencia/proximos.h"

#include <cstdint>
#include <cstdlib>
#include <map>
#include <utility>

#include "pim/erro.h"

namespace referencia {
namespace {

using POSICAO = std::ptrdiff_t;

// Hoare's partition of v[l..r] about the correlation of its middle element. Returns (j, i): then
// l..j hold the better part and i..r the worse, each to be sorted on its own.
std::pair<POSICAO, POSICAO> separa(MAXLOCAL* v, POSICAO l, POSICAO r) {
  const float pivo = v[(l + r) / 2].correl;
  POSICAO i = l;
  POSICAO j = r;
  do {
    while (v[i].correl > pivo) ++i;
    while (v[j].correl < pivo) --j;
    if (i <= j) std::swap(v[i++], v[j--]);
  } while (i <= j);
  return {j, i};
}

// The two parts never meet again, so the smaller may go first: the result is the same and the
// depth stays below the logarithm of the length.
void ordenaFaixa(MAXLOCAL* v, POSICAO l, POSICAO r) {
  while (l < r) {
    const auto [j, i] = separa(v, l, r);
    if (j - l < r - i) {
      ordenaFaixa(v, l, j);
      l = i;
    } else {
      ordenaFaixa(v, i, r);
      r = j;
    }
  }
}

bool perto(int a, int b, int maxDist) {
  return std::abs(std::int64_t{a} - b) <= maxDist;
}

}  // namespace

void ordena(std::vector<MAXLOCAL>& v, int l, int r) {
  pim::afirma(l <= r, "l<=r", {"vorplex", 558, "void ordena(std::vector<MAXLOCAL>&, int, int)"});
  ordenaFaixa(v.data(), l, r);
}

void eliminaProximo(const std::vector<MAXLOCAL>& entrada, std::vector<MAXLOCAL>& saida,
                    int maxDist) {
  std::multimap<std::int64_t, MAXLOCAL> mantidos;  // by column, equal ones in order of insertion
  for (const MAXLOCAL& m : entrada) {
    bool repetido = false;
    auto p = mantidos.lower_bound(std::int64_t{m.ci} - maxDist);
    for (; !repetido && p != mantidos.end() && p->first <= std::int64_t{m.ci} + maxDist; ++p) {
      repetido = p->second.forma == m.forma && perto(m.li, p->second.li, maxDist);
      if (repetido) {
        pim::afirma(perto(m.ci, p->second.ci, maxDist), "abs(v[i].ci-p->second.ci)<=maxDist",
                    {"vorplex", 580,
                     "void eliminaProximo(std::vector<MAXLOCAL>&, std::vector<MAXLOCAL>&, int)"});
      }
    }
    if (!repetido) mantidos.emplace(m.ci, m);
  }
  saida.clear();
  for (const auto& [coluna, m] : mantidos) saida.push_back(m);
  ordena(saida, 0, static_cast<int>(saida.size()) - 1);
}

}  // namespace referencia
