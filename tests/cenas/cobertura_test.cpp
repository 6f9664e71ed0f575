#include "examples/cenas/forma/cobertura.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "examples/cenas/forma/contorno.h"
#include "kernels/formas.h"

namespace {

double soma(const cenas::RETALHO& r) {
  return cv::sum(r.valor)[0];
}

double areaDe(const GRAO& g) {
  const double d = diametro(g);
  return std::numbers::pi * d * d / 4;
}

}  // namespace

TEST(Cobertura, SomaAAreaDaForma) {
  for (const char forma : {'c', 'q', 'r', 'e'}) {
    for (const double d : {1.3, 7.9, 31.25, 203.6}) {
      const double outra = forma == 'r' || forma == 'e' ? d / 2.7 : d;
      const GRAO g = {forma, 40.37, -50.81, d, outra, 28.4};
      const double achada = soma(cenas::cobertura(cenas::contornoDe(g)));
      EXPECT_NEAR(achada, areaDe(g), 1e-5 * areaDe(g)) << forma << ' ' << d;
    }
  }
}

TEST(Cobertura, DizAParteDeCadaPixel) {
  // From column 2.25 to 4 and from row 1 to 3.5: halves and quarters of pixels.
  const cenas::CONTORNO c = {{2.25, 1}, {4, 1}, {4, 3.5}, {2.25, 3.5}};
  const cenas::RETALHO r = cenas::cobertura(c);
  EXPECT_FLOAT_EQ(r.em(1, 2), 0.125F);
  EXPECT_FLOAT_EQ(r.em(1, 3), 0.5F);
  EXPECT_FLOAT_EQ(r.em(2, 2), 0.25F);
  EXPECT_FLOAT_EQ(r.em(2, 3), 1);
  EXPECT_FLOAT_EQ(r.em(2, 4), 0.5F);
  EXPECT_FLOAT_EQ(r.em(2, 5), 0);
  EXPECT_FLOAT_EQ(r.em(2, 1), 0);
}

TEST(Cobertura, ConcordaComPontosContados) {
  for (const char forma : {'c', 'q', 'r', 'e'}) {
    const double outra = forma == 'r' || forma == 'e' ? 9.5 : 23.5;
    const GRAO g = {forma, 20.37, 31.81, 23.5, outra, 151};
    const FIGURA f(g);
    const cenas::RETALHO r = cenas::cobertura(cenas::contornoDe(g));
    const cv::Rect caixa = r.caixa();
    for (int l = caixa.y; l < caixa.y + caixa.height; ++l) {
      for (int c = caixa.x; c < caixa.x + caixa.width; ++c) {
        ASSERT_NEAR(r.em(l, c), f.cobertura(l, c), 0.04) << forma << ' ' << l << ' ' << c;
      }
    }
  }
}

// As near as pixels that the edge crosses tell, whose share is not at their middle.
TEST(Cobertura, FicaNoLugar) {
  const GRAO g = {'e', 20.37, 31.81, 23.5, 12.25, 151};
  const cenas::RETALHO r = cenas::cobertura(cenas::contornoDe(g));
  double linha = 0;
  double coluna = 0;
  for (int l = 0; l < r.valor.rows; ++l) {
    for (int c = 0; c < r.valor.cols; ++c) {
      linha += static_cast<double>(r.valor(l, c)) * (l + r.canto.y);
      coluna += static_cast<double>(r.valor(l, c)) * (c + r.canto.x);
    }
  }
  EXPECT_NEAR(linha / soma(r), g.linha, 2e-3);
  EXPECT_NEAR(coluna / soma(r), g.coluna, 2e-3);
}

// The kernels draw half sizes in whole pixels about a pixel's middle.
TEST(Cobertura, AnguloEhODosKernels) {
  cv::Mat_<unsigned char> mascara;
  for (const double ang : {0.0, 20.0, 65.0, 90.0, 135.0, 170.0}) {
    mascaraRetangulo(mascara, 60, 20, ang);
    const double meio = mascara.rows / 2;
    const GRAO g = {'r', meio, meio, 61, 21, ang};
    const cenas::RETALHO r = cenas::cobertura(cenas::contornoDe(g), 12);
    int erradas = 0;
    for (int l = 0; l < mascara.rows; ++l) {
      for (int c = 0; c < mascara.cols; ++c) {
        if (!r.caixa().contains({c, l})) continue;
        const bool dentro = r.em(l, c) > 0.5F;
        if (dentro != (mascara(l, c) == 0)) ++erradas;
      }
    }
    EXPECT_LE(erradas, 90) << ang;  // of 1281, and of a rim of some 160
  }
}
