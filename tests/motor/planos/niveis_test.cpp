#include "motor/planos/niveis.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "apoio/detector.h"

using namespace motor;

TEST(Niveis, FotografiaDe8BitsEhInteiraNosDoisPrimeirosNiveis) {
  std::mt19937 g(20);
  PIRAMIDE piramide;
  constroiPiramide(piramide, cinzaSorteada(g, 64, 50), 3);
  std::vector<NIVEL> niveis;
  for (const cv::Mat_<float>& imagem : piramide) niveis.push_back(representa(imagem));
  EXPECT_EQ(niveis[0].tipo, REPRESENTACAO::inteira);
  EXPECT_EQ(niveis[0].unidade, 255);
  EXPECT_EQ(niveis[1].tipo, REPRESENTACAO::inteira);
  EXPECT_EQ(niveis[1].unidade, 65280);
  EXPECT_EQ(niveis[2].tipo, REPRESENTACAO::real);
}

TEST(Niveis, ValoresNaoFinitosNaoSeRepresentam) {
  cv::Mat_<float> img(4, 4, 0.5F);
  img(1, 2) = std::nanf("");
  EXPECT_EQ(representa(img).tipo, REPRESENTACAO::nenhuma);
  img(1, 2) = INFINITY;
  EXPECT_EQ(representa(img).tipo, REPRESENTACAO::nenhuma);
}
