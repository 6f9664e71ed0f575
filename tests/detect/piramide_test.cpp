#include "detect/piramide.h"

#include <gtest/gtest.h>

#include "pim/converte.h"

namespace {

std::vector<cv::Size> tamanhos(int rows, int cols, int maximo) {
  PIRAMIDE p;
  constroiPiramide(p, cv::Mat_<float>(rows, cols, 0.5F), maximo);
  std::vector<cv::Size> lista;
  for (const cv::Mat_<float>& nivel : p) lista.push_back(nivel.size());
  return lista;
}

}  // namespace

TEST(ConstroiPiramide, ImagemDeUmaLinhaOuColunaSoTemONivelZero) {
  EXPECT_EQ(tamanhos(1, 50, 4).size(), 1U);
  EXPECT_EQ(tamanhos(50, 1, 4).size(), 1U);
  EXPECT_EQ(tamanhos(1, 1, 0).size(), 1U);
}

TEST(ConstroiPiramide, MaximoUmSoTemONivelZero) {
  EXPECT_EQ(tamanhos(64, 64, 1).size(), 1U);
}

TEST(ConstroiPiramide, Imagem16ComMaximo4TemLados16a2) {
  EXPECT_EQ(tamanhos(16, 16, 4), (std::vector<cv::Size>{{16, 16}, {8, 8}, {4, 4}, {2, 2}}));
}

TEST(ConstroiPiramide, SemLimiteVaiAteUmaLinhaOuColuna) {
  EXPECT_EQ(tamanhos(16, 16, 0).back(), cv::Size(1, 1));
  EXPECT_EQ(tamanhos(16, 16, 0).size(), 5U);
  EXPECT_EQ(tamanhos(5, 100, -3), (std::vector<cv::Size>{{100, 5}, {50, 3}, {25, 2}, {13, 1}}));
}

TEST(ConstroiPiramide, NivelZeroDivideOsPixelsComAImagem) {
  const cv::Mat_<float> imagem(20, 30, 0.25F);
  PIRAMIDE p;
  constroiPiramide(p, imagem, 4);
  EXPECT_EQ(p[0].data, imagem.data);
  for (std::size_t L = 1; L < p.size(); ++L) EXPECT_NE(p[L].data, p[L - 1].data);
}

TEST(ConstroiPiramide, CadaNivelEhAReducaoDoAnterior) {
  cv::Mat_<float> imagem(37, 53);
  cv::RNG sorteio(32000);
  sorteio.fill(imagem, cv::RNG::UNIFORM, 0.0, 1.0);
  PIRAMIDE p;
  constroiPiramide(p, imagem, 4);
  ASSERT_EQ(p.size(), 4U);
  for (std::size_t L = 1; L < p.size(); ++L) {
    cv::Mat_<float> menor;
    pim::myPyrDown(p[L - 1], menor);
    EXPECT_EQ(p[L].size(), menor.size());
    EXPECT_EQ(cv::norm(p[L], menor, cv::NORM_INF), 0);
  }
}

TEST(ConstroiPiramide, NiveisAnterioresSaoSoltos) {
  PIRAMIDE p(7, cv::Mat_<float>(3, 3, 9.0F));
  const cv::Mat_<float> velha = p[0];
  constroiPiramide(p, cv::Mat_<float>(16, 16, 0.5F), 2);
  ASSERT_EQ(p.size(), 2U);
  EXPECT_EQ(p[1](3, 3), 0.5F);
  EXPECT_EQ(velha.u->refcount, 1);
}
