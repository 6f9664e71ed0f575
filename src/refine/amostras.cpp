#include "refine/amostras.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace refine {

namespace {

constexpr double pertoDoCanto = 1.5;  // pixels
constexpr double pesoNoCanto = 0.2;

// A point in the shape's own axes, turned and moved to its place.
AMOSTRA posta(const EIXOS& e, double u, double v, double nu, double nv, double arco) {
  const DIRECAO d = e.d;
  AMOSTRA a{};
  a.l = e.l + u * d.seno + v * d.cosseno;
  a.c = e.c + u * d.cosseno - v * d.seno;
  a.nl = nu * d.seno + nv * d.cosseno;
  a.nc = nu * d.cosseno - nv * d.seno;
  a.arco = arco;
  a.peso = 1;
  a.derivada = {a.nl, a.nc, 0, 0, nv * u - nu * v};
  return a;
}

void amostraCurva(const FIGURA& f, int n, std::vector<AMOSTRA>& v) {
  const EIXOS e(f);
  const double A = f.d1 / 2;
  const double B = f.d2 / 2;
  const double passo = 2 * std::numbers::pi / n;
  const DIRECAO giro = direcao(360.0 / n);
  DIRECAO t = direcao(180.0 / n);
  for (int k = 0; k < n; ++k) {
    const double rapidez = std::sqrt(A * A * t.seno * t.seno + B * B * t.cosseno * t.cosseno);
    const double nu = B * t.cosseno / rapidez;
    const double nv = A * t.seno / rapidez;
    AMOSTRA a = posta(e, A * t.cosseno, B * t.seno, nu, nv, rapidez * passo);
    a.derivada[2] = nu * t.cosseno / 2;
    a.derivada[3] = nv * t.seno / 2;
    a.curvatura = A * B / (rapidez * rapidez * rapidez);
    v.push_back(a);
    t = {t.cosseno * giro.cosseno - t.seno * giro.seno,
         t.seno * giro.cosseno + t.cosseno * giro.seno};
  }
}

// `n` points on each of the two sides at distance `longe` that are 2 `meia` long; `deitado` when
// they lie along the first axis.
void amostraLados(const EIXOS& e, double meia, double longe, bool deitado, int n,
                  std::vector<AMOSTRA>& v) {
  const double passo = 2 * meia / n;
  for (const double lado : {-1.0, 1.0}) {
    for (int k = 0; k < n; ++k) {
      const double s = (k + 0.5) * passo - meia;
      AMOSTRA a = deitado ? posta(e, s, lado * longe, 0, lado, passo)
                          : posta(e, lado * longe, s, lado, 0, passo);
      a.derivada[deitado ? 3 : 2] = 0.5;
      if (meia - std::fabs(s) < pertoDoCanto) a.peso = pesoNoCanto;
      a.lado = (deitado ? 0 : 2) + (lado > 0 ? 1 : 0);
      v.push_back(a);
    }
  }
}

}  // namespace

void amostra(const FIGURA& f, int n, std::vector<AMOSTRA>& v) {
  v.clear();
  if (f.forma == 'c' || f.forma == 'e') return amostraCurva(f, n, v);
  const EIXOS e(f);
  const double share = f.d1 / (f.d1 + f.d2);
  const int n1 = std::clamp(static_cast<int>(std::floor(n * share / 2 + 0.5)), 2, n / 2 - 2);
  amostraLados(e, f.d1 / 2, f.d2 / 2, true, n1, v);
  amostraLados(e, f.d2 / 2, f.d1 / 2, false, n / 2 - n1, v);
}

}  // namespace refine
