#include "measure/borda.h"

#include "measure/contorno.h"

namespace measure {

double chanceDeInteiro(const GRAO& g, int rows, int cols) {
  const PONTO meia = measure::meiaCaixa(g.figura);
  return (1 - 2 * meia.x / cols) * (1 - 2 * meia.y / rows);
}

void ponderaBorda(std::vector<GRAO>& graos, int rows, int cols, BORDA borda) {
  if (borda == BORDA::exclui) std::erase_if(graos, [](const GRAO& g) { return g.tocaBorda; });
  for (GRAO& g : graos) {
    // A grain as wide as the picture that is not cut: nothing tells how many were.
    const double chance = g.tocaBorda ? 0 : chanceDeInteiro(g, rows, cols);
    g.inteiro = chance > 0 ? 1 / chance : 0;
    g.vezes = borda == BORDA::corrige ? g.inteiro : 1;
  }
}

}  // namespace measure
