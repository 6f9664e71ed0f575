#include "refine/contorno/amostras.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace refine {

namespace {

const FIGURA asAmostradas[] = {
    {'c', 40.3, 50.7, 23, 23, 0},   {'c', 2, 3, 2.5, 2.5, 0},      {'q', 40.3, 50.7, 23, 23, 31},
    {'r', 40.3, 50.7, 37, 12, 107}, {'r', 40.3, 50.7, 9, 44, -20}, {'e', 40.3, 50.7, 37, 12, 107},
    {'e', 40.3, 50.7, 15, 26, 5},
};

// How far outward the outline of `f` lies from a point, along a direction: by halving.
double ateOContorno(const FIGURA& f, const AMOSTRA& a) {
  const EIXOS e(f);
  double dentro = -0.5, fora = 0.5;
  for (int k = 0; k < 60; ++k) {
    const double meio = (dentro + fora) / 2;
    (contem(f, e, a.l + meio * a.nl, a.c + meio * a.nc) ? dentro : fora) = meio;
  }
  return dentro;
}

FIGURA mudada(FIGURA f, std::size_t parametro, double quanto) {
  if (parametro == 0) f.l += quanto;
  if (parametro == 1) f.c += quanto;
  if (parametro == 2) f.d1 += quanto;
  if (parametro == 3) f.d2 += quanto;
  if (parametro == 4) f.ang += quanto * 180 / std::numbers::pi;
  return f;
}

}  // namespace

TEST(Amostras, FicamNoContornoComANormalParaFora) {
  std::vector<AMOSTRA> v;
  for (const FIGURA& f : asAmostradas) {
    for (const int n : {16, 32, 100}) {
      amostra(f, n, v);
      ASSERT_EQ(v.size(), static_cast<std::size_t>(n)) << f.forma;
      for (const AMOSTRA& a : v) {
        EXPECT_NEAR(ateOContorno(f, a), 0, 1e-9) << f.forma;
        EXPECT_NEAR(std::hypot(a.nl, a.nc), 1, 1e-12);
        EXPECT_GT((a.l - f.l) * a.nl + (a.c - f.c) * a.nc, 0);
      }
    }
  }
}

TEST(Amostras, ArcosSomamOPerimetro) {
  std::vector<AMOSTRA> v;
  for (const FIGURA& f : asAmostradas) {
    amostra(f, 64, v);
    double soma = 0;
    for (const AMOSTRA& a : v) soma += a.arco;
    EXPECT_NEAR(soma, perimetro(f), 1e-4 * perimetro(f)) << f.forma;
  }
}

TEST(Amostras, DerivadasSaoAsDoContorno) {
  constexpr double h = 1e-5;
  std::vector<AMOSTRA> v;
  for (const FIGURA& f : asAmostradas) {
    amostra(f, 32, v);
    for (const AMOSTRA& a : v) {
      for (std::size_t p = 0; p < parametros; ++p) {
        const double diferenca =
            (ateOContorno(mudada(f, p, h), a) - ateOContorno(mudada(f, p, -h), a)) / (2 * h);
        // Of a circle the angle moves nothing, but sizes do as axes.
        if (f.forma == 'c' && p >= 2) continue;
        EXPECT_NEAR(a.derivada[p], diferenca, 1e-4) << f.forma << ' ' << p;
      }
      if (f.forma == 'c') {
        EXPECT_NEAR(a.derivada[2] + a.derivada[3], 0.5, 1e-12);
        EXPECT_NEAR(a.derivada[4], 0, 1e-12);
      }
    }
  }
}

TEST(Amostras, CurvaturaELadosECantos) {
  std::vector<AMOSTRA> v;
  amostra({'c', 5, 5, 20, 20, 0}, 32, v);
  for (const AMOSTRA& a : v) {
    EXPECT_NEAR(a.curvatura, 0.1, 1e-12);
    EXPECT_EQ(a.lado, 0);
    EXPECT_EQ(a.peso, 1);
  }
  // Of an ellipse between b / a^2 and a / b^2.
  amostra({'e', 5, 5, 40, 20, 15}, 200, v);
  const auto [menor, maior] = std::minmax_element(
      v.begin(), v.end(), [](const auto& a, const auto& b) { return a.curvatura < b.curvatura; });
  EXPECT_NEAR(menor->curvatura, 10.0 / 400, 1e-4);
  EXPECT_NEAR(maior->curvatura, 20.0 / 100, 1e-3);
  amostra({'r', 5, 5, 40, 20, 15}, 120, v);
  double leves = 0, trocas = 0;
  for (std::size_t k = 0; k < v.size(); ++k) {
    EXPECT_EQ(v[k].curvatura, 0);
    if (v[k].peso < 1) leves += v[k].arco;
    if (k > 0 && v[k].lado != v[k - 1].lado) trocas += 1;
  }
  EXPECT_EQ(trocas, 3);
  EXPECT_NEAR(leves, 8 * 1.5, 4.0);  // 1.5 pixels to either side of four corners
}

}  // namespace refine
