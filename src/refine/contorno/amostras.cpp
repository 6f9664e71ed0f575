#include "refine/contorno/amostras.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace refine {

namespace {

constexpr double pertoDoCanto = 1.5;  // pixels
constexpr double pesoNoCanto = 0.2;

// Cosines and sines of the middles of `n` equal parts of the circle.
std::vector<DIRECAO> circulo(int n) {
  std::vector<DIRECAO> v;
  const DIRECAO giro = direcao(360.0 / n);
  DIRECAO t = direcao(180.0 / n);
  for (int k = 0; k < n; ++k) {
    v.push_back(t);
    t = {t.cosseno * giro.cosseno - t.seno * giro.seno,
         t.seno * giro.cosseno + t.cosseno * giro.seno};
  }
  return v;
}

// Fits take 16 or 32 samples, most of the time.
const std::vector<DIRECAO>& circuloUsual(int n, std::vector<DIRECAO>& outro) {
  static const std::vector<DIRECAO> poucos = circulo(16);
  static const std::vector<DIRECAO> mais = circulo(32);
  if (n == 16) return poucos;
  if (n == 32) return mais;
  outro = circulo(n);
  return outro;
}

// Puts a point given in the shape's own axes to its place.
void poe(AMOSTRA& a, const EIXOS& e, double u, double v, double nu, double nv) {
  const DIRECAO d = e.d;
  a.l = e.l + u * d.seno + v * d.cosseno;
  a.c = e.c + u * d.cosseno - v * d.seno;
  a.nl = nu * d.seno + nv * d.cosseno;
  a.nc = nu * d.cosseno - nv * d.seno;
  a.derivada[0] = a.nl;
  a.derivada[1] = a.nc;
  a.derivada[4] = nv * u - nu * v;
}

void amostraCurva(const FIGURA& f, int n, std::vector<AMOSTRA>& v) {
  const EIXOS e(f);
  const double A = f.d1 / 2;
  const double B = f.d2 / 2;
  const double passo = 2 * std::numbers::pi / n;
  std::vector<DIRECAO> outro;
  const DIRECAO* t = circuloUsual(n, outro).data();
  v.resize(static_cast<std::size_t>(n));
  for (AMOSTRA& a : v) {
    const double rapidez = std::sqrt(A * A * t->seno * t->seno + B * B * t->cosseno * t->cosseno);
    const double inverso = 1 / rapidez;
    const double nu = B * t->cosseno * inverso;
    const double nv = A * t->seno * inverso;
    poe(a, e, A * t->cosseno, B * t->seno, nu, nv);
    a.arco = rapidez * passo;
    a.derivada[2] = nu * t->cosseno / 2;
    a.derivada[3] = nv * t->seno / 2;
    a.curvatura = A * B * inverso * inverso * inverso;
    a.lado = 0;
    a.peso = 1;
    ++t;
  }
}

// `n` points on each of the two sides at distance `longe` that are 2 `meia` long; `deitado` when
// they lie along the first axis. Returns the place after the last.
AMOSTRA* amostraLados(const EIXOS& e, double meia, double longe, bool deitado, int n, AMOSTRA* a) {
  const double passo = 2 * meia / n;
  for (const double lado : {-1.0, 1.0}) {
    for (int k = 0; k < n; ++k, ++a) {
      const double s = (k + 0.5) * passo - meia;
      if (deitado) {
        poe(*a, e, s, lado * longe, 0, lado);
      } else {
        poe(*a, e, lado * longe, s, lado, 0);
      }
      a->arco = passo;
      a->curvatura = 0;
      a->derivada[2] = deitado ? 0 : 0.5;
      a->derivada[3] = deitado ? 0.5 : 0;
      a->peso = meia - std::fabs(s) < pertoDoCanto ? pesoNoCanto : 1;
      a->lado = (deitado ? 0 : 2) + (lado > 0 ? 1 : 0);
    }
  }
  return a;
}

}  // namespace

void amostra(const FIGURA& f, int n, std::vector<AMOSTRA>& v) {
  if (f.forma == 'c' || f.forma == 'e') return amostraCurva(f, n, v);
  const EIXOS e(f);
  const double share = f.d1 / (f.d1 + f.d2);
  const int n1 = std::clamp(static_cast<int>(std::floor(n * share / 2 + 0.5)), 2, n / 2 - 2);
  const int n2 = n / 2 - n1;
  v.resize(2 * static_cast<std::size_t>(n1 + n2));
  AMOSTRA* meio = amostraLados(e, f.d1 / 2, f.d2 / 2, true, n1, v.data());
  amostraLados(e, f.d2 / 2, f.d1 / 2, false, n2, meio);
}

}  // namespace refine
