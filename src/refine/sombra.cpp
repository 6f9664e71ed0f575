#include "refine/sombra.h"

#include <cmath>

namespace refine {

namespace {

constexpr double menorParte = 0.25;   // of the grains show a shadow
constexpr double menorAcordo = 0.75;  // length of the mean direction
constexpr double mesmoLado = 0.5;     // cosine

struct VETOR2 {
  double l = 0;
  double c = 0;
};

// The direction in which the middle moved.
VETOR2 lado(const MEDIDO& m) {
  const double l = m.semSombra->figura.l - m.inteiro->figura.l;
  const double c = m.semSombra->figura.c - m.inteiro->figura.c;
  const double n = std::sqrt(l * l + c * c);
  return n > 0 ? VETOR2{l / n, c / n} : VETOR2{};
}

}  // namespace

void tiraSombras(std::vector<MEDIDO>& v) {
  VETOR2 soma;
  double com = 0;
  for (const MEDIDO& m : v) {
    if (!m.semSombra) continue;
    const VETOR2 d = lado(m);
    soma.l += d.l;
    soma.c += d.c;
    com += 1;
  }
  const double acordo = std::sqrt(soma.l * soma.l + soma.c * soma.c);
  if (com < 3 || com < menorParte * static_cast<double>(v.size())) return;
  if (acordo < menorAcordo * com) return;
  for (MEDIDO& m : v) {
    if (!m.semSombra) continue;
    const VETOR2 d = lado(m);
    if ((d.l * soma.l + d.c * soma.c) / acordo > mesmoLado) m.inteiro = m.semSombra;
  }
}

}  // namespace refine
