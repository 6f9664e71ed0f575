#include "detect/correlacao.h"

#include <gtest/gtest.h>

#include <random>

#include "apoio/detector.h"
#include "kernels/normaliza.h"
#include "referencia/correlacao.h"

namespace {

using FLOAT = cv::Mat_<float>;

}  // namespace

TEST(CorrelaPiramide, EhASomaDiretaComBordaRepetida) {
  constexpr unsigned semente = 33000;
  SCOPED_TRACE(semente);
  std::mt19937 g(semente);
  const int lados[] = {3, 5, 9, 11, 13, 21, 33, 51};
  const cv::Size tamanhos[] = {{1, 1}, {4, 3}, {2, 17}, {40, 31}, {64, 50}, {90, 7}};
  for (const int n : lados) {
    for (const cv::Size tamanho : tamanhos) {
      const FLOAT K = pesosSorteados(g, n);
      const PIRAMIDE p = {imagemSorteada(g, tamanho.height, tamanho.width)};
      std::vector<FLOAT> saida;
      correlaPiramide(p, K, saida, 0);
      ASSERT_EQ(saida.size(), 1U);
      ASSERT_LE(maiorDiferenca(saida[0], referencia::somaDireta(p[0], K)), tolerancia)
          << "kernel " << n << " imagem " << tamanho;
    }
  }
}

TEST(CorrelaPiramide, KernelDeFormaRealEhASomaDireta) {
  std::mt19937 g(33001);
  const FLOAT img = imagemSorteada(g, 60, 70);
  FLOAT K;
  kernelRetangulo(K, 30, 12, 25);
  std::vector<FLOAT> saida;
  correlaPiramide({img}, K, saida, 0);
  EXPECT_LE(maiorDiferenca(saida[0], referencia::somaDireta(img, K)), tolerancia);
}

TEST(CorrelaPiramide, KernelNaoEhVirado) {
  FLOAT img(5, 5, 0.0F);
  img(2, 3) = 1.0F;
  FLOAT K(3, 3, 0.0F);
  K(1, 2) = 1.0F;  // looks one pixel to the right
  std::vector<FLOAT> saida;
  correlaPiramide({img}, K, saida, 0);
  EXPECT_NEAR(saida[0](2, 2), 1, tolerancia);
  EXPECT_NEAR(saida[0](2, 4), 0, tolerancia);
}

TEST(CorrelaPiramide, BordaRepeteOsPixelsENaoZeros) {
  const FLOAT img(9, 9, 0.8F);
  FLOAT K;
  kernelCirculo(K, 10);
  std::vector<FLOAT> saida;
  correlaPiramide({img}, K, saida, 0);
  EXPECT_LE(cv::norm(saida[0], cv::NORM_INF), tolerancia);
}

TEST(CorrelaPiramide, FormaPretaNoBrancoCorrelacionaComUm) {
  FLOAT K;
  kernelElipse(K, 20, 11, 30);
  FLOAT img(K.size(), 1.0F);
  for (int l = 0; l < K.rows; ++l) {
    for (int c = 0; c < K.cols; ++c) img(l, c) = K(l, c) < 0 ? 0.0F : 1.0F;
  }
  std::vector<FLOAT> saida;
  correlaPiramide({img}, K, saida, 0);
  EXPECT_NEAR(saida[0](K.rows / 2, K.cols / 2), 1, tolerancia);
}

TEST(CorrelaPiramide, SaidaTemUmaImagemPorNivelEMesmoAcimaDoUltimo) {
  std::mt19937 g(33002);
  const PIRAMIDE p = piramideDe(imagemSorteada(g, 40, 24), 4);
  const FLOAT K = pesosSorteados(g, 5);
  std::vector<FLOAT> saida;
  correlaPiramide(p, K, saida, 1);
  ASSERT_EQ(saida.size(), 4U);
  for (std::size_t L = 0; L < 4; ++L) EXPECT_EQ(saida[L].size(), p[L].size());
  EXPECT_LE(maiorDiferenca(saida[1], referencia::somaDireta(p[1], K)), tolerancia);
}

TEST(CorrelaPiramide, UltimoNegativoSoPreparaAsImagens) {
  std::mt19937 g(33003);
  const PIRAMIDE p = piramideDe(imagemSorteada(g, 12, 12), 2);
  std::vector<FLOAT> saida = {FLOAT(12, 12, 7.0F)};
  correlaPiramide(p, pesosSorteados(g, 3), saida, -1);
  ASSERT_EQ(saida.size(), 2U);
  EXPECT_EQ(cv::countNonZero(saida[0] != 7.0F), 0);
  EXPECT_EQ(saida[1].size(), cv::Size(6, 6));
}
