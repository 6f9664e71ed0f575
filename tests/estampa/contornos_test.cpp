#include "estampa/contornos.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using estampa::desenhaContornos;
using estampa::desenhaIndices;
using measure::GRAO;

namespace {

GRAO grao(char forma, double l, double c, double d1, double d2, double ang) {
  GRAO g;
  g.figura = {forma, l, c, d1, d2, ang};
  return g;
}

// Centre of gravity and mean distance from it of what was drawn on white, weighted by how much
// darker each pixel became.
struct TRACO {
  double l = 0;
  double c = 0;
  double raio = 0;
};

TRACO traco(const cv::Mat_<pim::VEC3B>& img) {
  const auto quanto = [&](int l, int c) {
    return 765.0 - img(l, c)[0] - img(l, c)[1] - img(l, c)[2];
  };
  TRACO t;
  double soma = 0;
  for (int l = 0; l < img.rows; ++l) {
    for (int c = 0; c < img.cols; ++c) {
      soma += quanto(l, c);
      t.l += quanto(l, c) * l;
      t.c += quanto(l, c) * c;
    }
  }
  t.l /= soma;
  t.c /= soma;
  for (int l = 0; l < img.rows; ++l) {
    for (int c = 0; c < img.cols; ++c) t.raio += quanto(l, c) * std::hypot(l - t.l, c - t.c) / soma;
  }
  return t;
}

TEST(DesenhaContornos, SegueAsFracoesDePixel) {
  for (int k = 0; k < 10; ++k) {
    const double l = 30 + 0.1 * k;
    const double c = 34.5 - 0.13 * k;
    const double d = 40 + 0.17 * k;
    cv::Mat_<pim::VEC3B> img(64, 70, pim::VEC3B(255, 255, 255));
    desenhaContornos(img, {grao('c', l, c, d, d, 0)});
    const TRACO t = traco(img);
    EXPECT_NEAR(t.l, l, 0.1) << k;
    EXPECT_NEAR(t.c, c, 0.1) << k;
    EXPECT_NEAR(t.raio, d / 2, 0.1) << k;
  }
}

TEST(DesenhaContornos, CadaLetraTemSuaCor) {
  std::vector<pim::VEC3B> cores;
  for (const char letra : {'c', 'q', 'r', 'e'}) {
    cv::Mat_<pim::VEC3B> img(41, 41, pim::VEC3B(255, 255, 255));
    desenhaContornos(img, {grao(letra, 20, 20, 20, 20, 0)});
    cores.push_back(img(20, 30));
    EXPECT_EQ(img(20, 20), pim::VEC3B(255, 255, 255));
    EXPECT_EQ(img(20, 34), pim::VEC3B(255, 255, 255));
  }
  for (std::size_t i = 0; i < cores.size(); ++i) {
    for (std::size_t k = 0; k < i; ++k) EXPECT_NE(cores[i], cores[k]);
  }
}

TEST(DesenhaContornos, AlemDaBordaEMuitoGrandesSaoCortados) {
  cv::Mat_<pim::VEC3B> img(20, 30, pim::VEC3B(255, 255, 255));
  desenhaContornos(img, {grao('c', 0.5, 0.5, 19, 19, 0), grao('r', -40, 700, 2000, 900, 30),
                         grao('e', 10, 15, 1e6, 9e5, 77)});
  desenhaIndices(img, {grao('c', 0.5, 0.5, 19, 19, 0), grao('r', -40, 700, 2000, 900, 30)});
  EXPECT_EQ(img.size(), cv::Size(30, 20));
}

}  // namespace
