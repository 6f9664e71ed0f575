#include "referencia/proximos.h"

#include <cstdint>
#include <cstdlib>
#include <map>

#include "pim/erro.h"

namespace referencia {
namespace {

bool perto(int a, int b, int maxDist) {
  return std::abs(std::int64_t{a} - b) <= maxDist;
}

}  // namespace

void ordena(std::vector<MAXLOCAL>& v, int l, int r) {
  pim::afirma(l <= r, "l<=r", {"vorplex", 558, "void ordena(std::vector<MAXLOCAL>&, int, int)"});
  quicksort(v, l, r, [](const MAXLOCAL& a, const MAXLOCAL& b) { return a.correl > b.correl; });
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
