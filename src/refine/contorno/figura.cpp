#include "refine/contorno/figura.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace refine {

namespace {

bool curva(char forma) {
  return forma == 'c' || forma == 'e';
}

}  // namespace

FIGURA figura(const MAXLOCAL& m) {
  FIGURA f{m.forma, static_cast<double>(m.li), static_cast<double>(m.ci), m.d1, m.d2, m.ang};
  if (m.forma == 'c' || m.forma == 'q') f.d2 = f.d1;
  if (m.forma == 'c') f.ang = 0;
  return f;
}

double area(const FIGURA& f) {
  return f.d1 * f.d2 * (curva(f.forma) ? std::numbers::pi / 4 : 1);
}

double perimetro(const FIGURA& f) {
  if (!curva(f.forma)) return 2 * (f.d1 + f.d2);
  // Ramanujan's second approximation (1914).
  const double soma = f.d1 + f.d2;
  const double h = (f.d1 - f.d2) / soma * ((f.d1 - f.d2) / soma);
  return std::numbers::pi / 2 * soma * (1 + 3 * h / (10 + std::sqrt(4 - 3 * h)));
}

double menorMetade(const FIGURA& f) {
  return std::min(f.d1, f.d2) / 2;
}

double alongamento(const FIGURA& f) {
  return std::max(f.d1, f.d2) / std::min(f.d1, f.d2);
}

FIGURA normal(FIGURA f) {
  if (f.d2 > f.d1) {
    std::swap(f.d1, f.d2);
    f.ang += 90;
  }
  if (f.forma == 'c') f.ang = 0;
  const double volta = f.forma == 'q' ? 90 : 180;
  f.ang -= volta * std::floor(f.ang / volta);
  return f;
}

CAIXA meiaCaixa(const FIGURA& f) {
  const DIRECAO d = direcao(f.ang);
  const double ac = std::fabs(f.d1 * d.cosseno) / 2;
  const double as = std::fabs(f.d1 * d.seno) / 2;
  const double bc = std::fabs(f.d2 * d.cosseno) / 2;
  const double bs = std::fabs(f.d2 * d.seno) / 2;
  if (!curva(f.forma)) return {as + bc, ac + bs};
  return {std::sqrt(as * as + bc * bc), std::sqrt(ac * ac + bs * bs)};
}

double interseccaoSobreUniao(const FIGURA& a, const FIGURA& b, int n) {
  const CAIXA ca = meiaCaixa(a);
  const CAIXA cb = meiaCaixa(b);
  const double l0 = std::min(a.l - ca.altura, b.l - cb.altura);
  const double l1 = std::max(a.l + ca.altura, b.l + cb.altura);
  const double c0 = std::min(a.c - ca.largura, b.c - cb.largura);
  const double c1 = std::max(a.c + ca.largura, b.c + cb.largura);
  const EIXOS ea(a);
  const EIXOS eb(b);
  int ambas = 0;
  int alguma = 0;
  for (int i = 0; i < n; ++i) {
    const double l = l0 + (i + 0.5) * (l1 - l0) / n;
    for (int j = 0; j < n; ++j) {
      const double c = c0 + (j + 0.5) * (c1 - c0) / n;
      const bool emA = contem(a, ea, l, c);
      const bool emB = contem(b, eb, l, c);
      ambas += emA && emB ? 1 : 0;
      alguma += emA || emB ? 1 : 0;
    }
  }
  return alguma > 0 ? static_cast<double>(ambas) / alguma : 0;
}

}  // namespace refine
