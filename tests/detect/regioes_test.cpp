#include "detect/regioes.h"

#include <gtest/gtest.h>

#include "kernels/normaliza.h"

TEST(RegioesDoKernel, KernelDeOutrosValoresNaoServe) {
  const cv::Mat_<float> quatroValores = (cv::Mat_<float>(1, 3) << 0.25F, -1, 0.75F);
  EXPECT_FALSE(regioesDoKernel(quatroValores));
  const cv::Mat_<float> semNucleo(3, 3, 1.0F / 9);
  EXPECT_FALSE(regioesDoKernel(semNucleo));
}

TEST(RegioesDoKernel, ContamAnelENucleo) {
  cv::Mat_<float> K;
  kernelCirculo(K, 1);
  const auto r = regioesDoKernel(K);
  ASSERT_TRUE(r);
  EXPECT_EQ(r->nAnel, 8);
  EXPECT_EQ(r->nNucleo, 1);
  EXPECT_EQ(cv::countNonZero(r->tudo), 9);
  EXPECT_EQ(cv::countNonZero(r->nucleo), 1);
}

TEST(LadosDaRegiao, UmTrechoPorLinhaDaDoisLados) {
  const REGIAO regiao = (REGIAO(3, 4) << 0, 1, 1, 0,  //
                         1, 1, 1, 0,                  //
                         0, 0, 0, 1);
  const auto lados = ladosDaRegiao(regiao);
  ASSERT_EQ(lados.size(), 2U);
  const LADO& esquerdo = lados[0].sinal < 0 ? lados[0] : lados[1];
  const LADO& direito = lados[0].sinal < 0 ? lados[1] : lados[0];
  // Counted from pixel (1, 2); the left side stands just before its pixels.
  EXPECT_EQ(esquerdo.sinal, -1);
  EXPECT_EQ(esquerdo.linha, -1);
  EXPECT_EQ(esquerdo.coluna, (std::vector<int>{-2, -3, 0}));
  EXPECT_EQ(direito.sinal, 1);
  EXPECT_EQ(direito.coluna, (std::vector<int>{0, 0, 1}));
}

TEST(LadosDaRegiao, LinhaVaziaSeparaOsLados) {
  const REGIAO regiao = (REGIAO(3, 1) << 1, 0, 1);
  EXPECT_EQ(ladosDaRegiao(regiao).size(), 4U);
  EXPECT_TRUE(ladosDaRegiao(REGIAO(2, 2, static_cast<unsigned char>(0))).empty());
}
