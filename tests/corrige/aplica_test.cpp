#include "corrige/aplica.h"

#include <gtest/gtest.h>

#include <cmath>
#include <opencv2/imgproc.hpp>

using namespace corrige;
using refine::APURADO;
using refine::FIGURA;

namespace {

// Dark discs and a rectangle on bright ground, softened.
cv::Mat_<unsigned char> foto() {
  cv::Mat_<unsigned char> img(200, 260, static_cast<unsigned char>(200));
  cv::circle(img, {60, 50}, 20, cv::Scalar(60), cv::FILLED);
  cv::circle(img, {180, 60}, 15, cv::Scalar(60), cv::FILLED);
  cv::rectangle(img, cv::Rect(100, 120, 60, 30), cv::Scalar(60), cv::FILLED);
  cv::GaussianBlur(img, img, {}, 0.8);
  return img;
}

APURADO grao(char forma, double l, double c, double d1, double d2, double ang = 0) {
  return {{forma, l, c, d1, d2, ang}, 0.5F, 0.9, 0.5, {0.1, 0.1, 0.1, 0.1, 0}};
}

CORRECAO gesto(GESTO g, const FIGURA& f) {
  return {g, f};
}

TEST(Aplica, RejeitaOMaisParecidoENenhumOutro) {
  std::vector<APURADO> v = {grao('c', 50, 60, 41, 41), grao('c', 50, 62, 30, 30),
                            grao('c', 60, 180, 31, 31)};
  const FEITAS f = aplica(foto(), {gesto(GESTO::rejeita, {'e', 50, 60, 42, 40, 0})}, v);
  EXPECT_EQ(f.rejeitados, 1U);
  EXPECT_EQ(f.semPar, 0U);
  ASSERT_EQ(v.size(), 2U);
  EXPECT_EQ(v[0].figura.d1, 30);
  EXPECT_EQ(v[1].figura.d1, 31);
}

TEST(Aplica, QuemNaoTemParEhContado) {
  std::vector<APURADO> v = {grao('c', 50, 60, 41, 41)};
  const FEITAS f = aplica(foto(),
                          {gesto(GESTO::rejeita, {'c', 150, 60, 41, 41, 0}),
                           gesto(GESTO::rejeita, {'c', 50, 60, 15, 15, 0}),
                           gesto(GESTO::desenha, {'c', 500, 60, 41, 41, 0}),
                           gesto(GESTO::desenha, {'c', 50, 60, 4100, 4100, 0}),
                           gesto(GESTO::desenha, {'c', 50, 60, 1e-4, 1e-4, 0})},
                          v);
  EXPECT_EQ(f.semPar, 5U);
  EXPECT_EQ(v.size(), 1U);
}

TEST(Aplica, DesenhadoAOlhoEhAjustadoAsBordas) {
  std::vector<APURADO> v;
  const FEITAS f = aplica(foto(),
                          {gesto(GESTO::desenha, {'c', 53, 57, 36, 36, 0}),
                           gesto(GESTO::recupera, {'r', 136, 132, 66, 27, 4})},
                          v);
  EXPECT_EQ(f.desenhados, 1U);
  EXPECT_EQ(f.recuperados, 1U);
  ASSERT_EQ(v.size(), 2U);
  EXPECT_NEAR(v[0].figura.l, 50, 0.3);
  EXPECT_NEAR(v[0].figura.c, 60, 0.3);
  EXPECT_NEAR(v[0].figura.d1, 40.4, 0.6);
  EXPECT_EQ(v[0].apoio, 1);
  EXPECT_NEAR(v[0].contraste, 140.0 / 255, 0.1);
  EXPECT_GT(v[0].erro[2], 0);
  EXPECT_EQ(v[1].figura.forma, 'r');
  EXPECT_NEAR(v[1].figura.l, 134.5, 0.3);
  EXPECT_NEAR(v[1].figura.c, 129.5, 0.3);
  EXPECT_NEAR(v[1].figura.d1, 60, 0.6);
  EXPECT_NEAR(v[1].figura.d2, 30, 0.6);
}

TEST(Aplica, OndeNaoHaBordasFicaComoFoiDesenhado) {
  std::vector<APURADO> v;
  aplica(cv::Mat_<unsigned char>(200, 260, static_cast<unsigned char>(200)),
         {gesto(GESTO::desenha, {'q', 60, 70, 25, 25, 30})}, v);
  ASSERT_EQ(v.size(), 1U);
  EXPECT_EQ(v[0].figura.l, 60);
  EXPECT_EQ(v[0].figura.d1, 25);
  EXPECT_EQ(v[0].figura.ang, 30);
  EXPECT_EQ(v[0].erro[0], 0);
  EXPECT_TRUE(std::isfinite(v[0].contraste));
}

TEST(Aplica, DesenhadoSobreUmGraoTomaOLugarDele) {
  std::vector<APURADO> v = {grao('e', 50, 60, 44, 36), grao('c', 60, 180, 31, 31)};
  aplica(foto(), {gesto(GESTO::desenha, {'c', 51, 60, 39, 39, 0})}, v);
  ASSERT_EQ(v.size(), 2U);
  EXPECT_EQ(v[0].figura.d1, 31);
  EXPECT_EQ(v[1].figura.forma, 'c');
}

TEST(Aplica, UmaDepoisDaOutra) {
  std::vector<APURADO> v;
  const FIGURA f{'c', 50, 60, 40, 40, 0};
  aplica(foto(), {gesto(GESTO::desenha, f), gesto(GESTO::rejeita, f)}, v);
  EXPECT_TRUE(v.empty());
  aplica(foto(), {gesto(GESTO::desenha, f), gesto(GESTO::desenha, f)}, v);
  EXPECT_EQ(v.size(), 1U);
}

}  // namespace
