#include "estampa/rotulos.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

using estampa::rotulos;
using refine::FIGURA;

namespace {

int pixels(const cv::Mat_<int>& img, int rotulo) {
  return cv::countNonZero(img == rotulo);
}

}  // namespace

TEST(Rotulos, RetangulosDeLadosInteirosTemSuaArea) {
  for (const double onde : {20.0, 20.5, 20.25, 19.9}) {
    for (const double ang : {0.0, 90.0, 180.0}) {
      EXPECT_EQ(pixels(rotulos({41, 43}, {{'r', onde, onde, 10, 7, ang}}), 1), 70) << onde << ang;
      EXPECT_EQ(pixels(rotulos({41, 43}, {{'q', onde, onde, 8, 8, ang}}), 1), 64) << onde << ang;
    }
  }
}

// At random places and angles the mean is the area.
TEST(Rotulos, NaMediaOsPixelsSaoAArea) {
  std::mt19937 sorteio(3);
  std::uniform_real_distribution<double> lugar(29, 31);
  std::uniform_real_distribution<double> angulo(0, 180);
  constexpr int vezes = 200;
  for (const char forma : {'c', 'q', 'r', 'e'}) {
    double soma = 0;
    double area = 0;
    for (int i = 0; i < vezes; ++i) {
      const double d2 = forma == 'c' || forma == 'q' ? 21.3 : 12.8;
      const FIGURA f = {
          forma, lugar(sorteio), lugar(sorteio), 21.3, d2, forma == 'c' ? 0 : angulo(sorteio)};
      soma += pixels(rotulos({60, 60}, {f}), 1);
      area += refine::area(f);
    }
    EXPECT_NEAR(soma / area, 1, 0.005) << forma;
  }
}

TEST(Rotulos, OPrimeiroFicaComOPixel) {
  const FIGURA grande = {'q', 10, 10, 12, 12, 0};
  const FIGURA pequena = {'c', 10, 10, 5, 5, 0};
  const cv::Mat_<int> img = rotulos({21, 21}, {pequena, grande, pequena});
  EXPECT_EQ(img(10, 10), 1);
  EXPECT_EQ(img(10, 5), 2);
  EXPECT_EQ(img(0, 0), 0);
  EXPECT_EQ(pixels(img, 3), 0);
  EXPECT_EQ(pixels(img, 1) + pixels(img, 2), 144);
}

TEST(Rotulos, AlemDaBordaEMuitoGrandes) {
  const cv::Mat_<int> img = rotulos(
      {9, 7}, {{'c', -50, 3, 20, 20, 0}, {'c', 1e9, -1e9, 9, 9, 0}, {'e', 3, 4, 1e6, 1e6, 77}});
  EXPECT_EQ(pixels(img, 3), 63);
  EXPECT_TRUE(rotulos({0, 5}, {{'c', 1, 1, 3, 3, 0}}).empty());
  EXPECT_EQ(cv::countNonZero(rotulos({5, 4}, {})), 0);
}
