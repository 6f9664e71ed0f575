#include "export/recorte.h"

#include <array>
#include <cstddef>

namespace exporta {
namespace {

using measure::PONTO;

// The side nx x + ny y <= limite of a straight line along rows or columns.
struct METADE {
  double nx = 0;
  double ny = 0;
  double limite = 0;
};

double alem(const METADE& m, const PONTO& p) {
  return m.nx * p.x + m.ny * p.y - m.limite;
}

void poe(std::vector<PONTO>& v, const PONTO& p) {
  if (v.empty() || v.back().x != p.x || v.back().y != p.y) v.push_back(p);
}

// Where the line cuts from `a` to `b`, on it to the last bit.
PONTO corte(const METADE& m, const PONTO& a, const PONTO& b) {
  const double t = alem(m, a) / (alem(m, a) - alem(m, b));
  PONTO p = {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)};
  if (m.nx != 0) p.x = m.limite * m.nx;
  if (m.ny != 0) p.y = m.limite * m.ny;
  return p;
}

std::vector<PONTO> metade(const std::vector<PONTO>& v, const METADE& m) {
  std::vector<PONTO> dentro;
  for (std::size_t i = 0; i < v.size(); ++i) {
    const PONTO& a = v[i];
    const PONTO& b = v[(i + 1) % v.size()];
    const bool aqui = alem(m, a) <= 0;
    if (aqui) poe(dentro, a);
    if (aqui != (alem(m, b) <= 0)) poe(dentro, corte(m, a, b));
  }
  while (dentro.size() > 1 && dentro.front().x == dentro.back().x &&
         dentro.front().y == dentro.back().y) {
    dentro.pop_back();
  }
  return dentro;
}

}  // namespace

std::vector<PONTO> recorta(std::vector<PONTO> v, double largura, double altura) {
  const std::array<METADE, 4> lados = {{{-1, 0, 0}, {1, 0, largura}, {0, -1, 0}, {0, 1, altura}}};
  for (const METADE& m : lados) v = metade(v, m);
  return v;
}

double areaComSinal(const std::vector<PONTO>& v) {
  double soma = 0;
  for (std::size_t i = 0; i < v.size(); ++i) {
    const PONTO& a = v[i];
    const PONTO& b = v[(i + 1) % v.size()];
    soma += a.x * b.y - b.x * a.y;
  }
  return soma / 2;
}

}  // namespace exporta
