#include "export/recorte.h"

#include <gtest/gtest.h>

#include <random>

using namespace exporta;
using measure::PONTO;

namespace {

// The share of a fine grid over the picture that lies in a convex outline, clockwise on the screen.
double areaPorGrade(const std::vector<PONTO>& v, double largura, double altura) {
  constexpr int passos = 400;
  int dentro = 0;
  for (int i = 0; i < passos * passos; ++i) {
    const double x = (i % passos + 0.5) * largura / passos;
    const double y = (i / passos + 0.5) * altura / passos;
    bool aqui = true;
    for (std::size_t k = 0; aqui && k < v.size(); ++k) {
      const PONTO& a = v[k];
      const PONTO& b = v[(k + 1) % v.size()];
      aqui = (b.x - a.x) * (y - a.y) - (b.y - a.y) * (x - a.x) >= 0;
    }
    if (aqui) ++dentro;
  }
  return dentro * largura * altura / (passos * passos);
}

TEST(Recorte, AreaComoContadaNumaGrade) {
  std::mt19937 g(7);
  std::uniform_real_distribution<double> lugar(-20, 60);
  std::uniform_real_distribution<double> tamanho(5, 70);
  std::uniform_real_distribution<double> angulo(0, 180);
  for (int i = 0; i < 40; ++i) {
    const refine::FIGURA f = {
        i % 2 == 0 ? 'r' : 'e', lugar(g), lugar(g), tamanho(g), tamanho(g), angulo(g)};
    const std::vector<PONTO> v = measure::contorno(f, 0.02);
    const std::vector<PONTO> r = recorta(v, 40, 30);
    const double area = r.size() < 3 ? 0 : exporta::areaComSinal(r);
    EXPECT_NEAR(area, areaPorGrade(v, 40, 30), 1.5) << i;
  }
}

TEST(Recorte, DentroFicaComoEstava) {
  const std::vector<PONTO> v = {{0, 0}, {10, 0}, {10, 5}, {0, 5}};
  const std::vector<PONTO> r = recorta(v, 10, 5);
  ASSERT_EQ(r.size(), 4U);
  EXPECT_EQ(exporta::areaComSinal(r), 50);
}

TEST(Recorte, OQueTocaPorForaNaoTemArea) {
  const std::vector<PONTO> r = recorta({{10, 0}, {20, 0}, {20, 5}, {10, 5}}, 10, 5);
  EXPECT_TRUE(r.size() < 3 || exporta::areaComSinal(r) == 0);
  EXPECT_TRUE(recorta({{11, 0}, {20, 0}, {20, 5}, {11, 5}}, 10, 5).empty());
}

}  // namespace
