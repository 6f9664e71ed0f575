#include "measure/contorno.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <utility>

namespace measure {
namespace {

// Half the sizes, as the shape's letter reads them.
PONTO meios(const refine::FIGURA& f) {
  const bool umTamanho = f.forma == 'c' || f.forma == 'q';
  return {f.d1 / 2, (umTamanho ? f.d1 : f.d2) / 2};
}

PONTO direcaoDe(const refine::FIGURA& f) {
  return f.forma == 'c' ? PONTO{1, 0} : direcao(f.ang);
}

// Points on a circle of radius `raio` whose chords are within `desvio`: raio (1 - cos(pi / n)).
// An ellipse is such a circle squeezed, which brings chord and curve only closer.
std::size_t quantosPontos(double raio, double desvio) {
  constexpr double menosPontos = 16;
  const double folga = std::min(desvio / raio, 1.0);
  const double n = std::max(menosPontos, std::numbers::pi / std::acos(1 - folga));
  return static_cast<std::size_t>(std::ceil(n / 4)) * 4;
}

}  // namespace

PONTO direcao(double ang) {
  int quartos = 0;
  const double resto = std::remquo(ang, 90.0, &quartos) * (std::numbers::pi / 180);
  PONTO p{std::cos(resto), std::sin(resto)};
  for (int i = quartos & 3; i > 0; --i) p = {-p.y, p.x};
  return p;
}

PONTO meiaCaixa(const refine::FIGURA& f) {
  const PONTO t = meios(f);
  if (f.forma == 'c') return t;
  const PONTO dir = direcaoDe(f);
  const double ac = std::abs(t.x * dir.x);
  const double as = std::abs(t.x * dir.y);
  const double bc = std::abs(t.y * dir.x);
  const double bs = std::abs(t.y * dir.y);
  if (f.forma == 'e') return {std::hypot(ac, bs), std::hypot(as, bc)};
  return {ac + bs, as + bc};
}

bool aprumada(const refine::FIGURA& f) {
  const PONTO dir = direcaoDe(f);
  return dir.x == 0 || dir.y == 0;
}

std::vector<PONTO> contorno(const refine::FIGURA& f, double desvio) {
  const PONTO t = meios(f);
  std::vector<PONTO> v;
  if (f.forma == 'q' || f.forma == 'r') {
    v = {{-t.x, -t.y}, {t.x, -t.y}, {t.x, t.y}, {-t.x, t.y}};
  } else {
    v.resize(quantosPontos(std::max(t.x, t.y), desvio));
    for (std::size_t i = 0; i < v.size(); ++i) {
      const PONTO p = direcao(360.0 * static_cast<double>(i) / static_cast<double>(v.size()));
      v[i] = {t.x * p.x, t.y * p.y};
    }
  }
  const PONTO dir = direcaoDe(f);
  for (PONTO& p : v) {
    p = {f.c + p.x * dir.x - p.y * dir.y, f.l + p.x * dir.y + p.y * dir.x};
  }
  return v;
}

}  // namespace measure
