#include "examples/cenas/forma/ajuste.h"

#include <gtest/gtest.h>

#include "examples/cenas/forma/contorno.h"

TEST(Ajuste, AchaAFormaDeUmContornoExato) {
  for (const char forma : {'c', 'q', 'r', 'e'}) {
    const double outra = forma == 'r' || forma == 'e' ? 18 : 32;
    const GRAO g = {forma, 40.3, 50.6, 32, outra, forma == 'c' ? 0.0 : 25.0};
    const GRAO inicio = {forma, 41.5, 49.8, 34, forma == 'r' || forma == 'e' ? 20.0 : 34, 31};
    const GRAO achado = cenas::ajusta(cenas::contornoDe(g), forma, inicio);
    EXPECT_NEAR(achado.linha, g.linha, 0.2) << forma;
    EXPECT_NEAR(achado.coluna, g.coluna, 0.2) << forma;
    EXPECT_NEAR(achado.d1, g.d1, 0.4) << forma;
    EXPECT_NEAR(achado.d2, g.d2, 0.4) << forma;
    EXPECT_NEAR(achado.ang, forma == 'c' ? inicio.ang : g.ang, 1.5) << forma;
    EXPECT_NEAR(diametro(achado), diametro(g), 1e-3) << forma;
    EXPECT_GT(cenas::semelhanca(cenas::contornoDe(g), achado), 0.97) << forma;
  }
}

TEST(Ajuste, ContornoIrregularTemAFormaDeMesmaArea) {
  SORTEIO s{3};
  const GRAO g = {'e', 60, 70, 44, 26, 70};
  for (const cenas::FEITIO feitio : {cenas::FEITIO::ondulado, cenas::FEITIO::pedra}) {
    const cenas::CONTORNO c = cenas::contornoDe(g, feitio, 0.05, s);
    const GRAO achado = cenas::ajusta(c, 'e', g);
    EXPECT_NEAR(achado.d1 * achado.d2 * 0.785398, cenas::area(c), 0.5);
    EXPECT_GT(cenas::semelhanca(c, achado), 0.85);
  }
}

TEST(Ajuste, RetanguloOnduladoSegueRetangulo) {
  SORTEIO s{5};
  const GRAO g = {'r', 60, 70, 44, 26, 70};
  const cenas::CONTORNO c = cenas::contornoDe(g, cenas::FEITIO::ondulado, 0.03, s);
  EXPECT_GT(cenas::semelhanca(c, cenas::ajusta(c, 'r', g)), 0.92);
  EXPECT_LT(cenas::semelhanca(c, cenas::ajusta(c, 'e', g)), 0.92);
}
