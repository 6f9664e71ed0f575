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

TEST(DivideLinhas, CadaParteCabeETodasJuntasSaoOKernel) {
  cv::Mat_<float> K;
  kernelElipse(K, 40, 25, 30);
  const REGIOES r = regioesDoKernel(K).value();
  const auto partes = divideLinhas(r, 150);
  ASSERT_GT(partes.size(), 3U);
  REGIAO somaTudo(K.size(), 0);
  REGIAO somaNucleo(K.size(), 0);
  for (const cv::Range& x : partes) {
    const REGIAO tudo = soLinhas(r.tudo, x);
    const REGIAO nucleo = soLinhas(r.nucleo, x);
    EXPECT_LE(cv::countNonZero(nucleo), 150);
    EXPECT_LE(cv::countNonZero(tudo) - cv::countNonZero(nucleo), 150);
    somaTudo += tudo;
    somaNucleo += nucleo;
  }
  EXPECT_EQ(cv::countNonZero(somaTudo != r.tudo), 0);
  EXPECT_EQ(cv::countNonZero(somaNucleo != r.nucleo), 0);
}

TEST(DivideLinhas, LinhaQueNaoCabeNaoTemPartes) {
  cv::Mat_<float> K;
  kernelRetangulo(K, 40, 6, 0);
  const REGIOES r = regioesDoKernel(K).value();
  EXPECT_FALSE(divideLinhas(r, 60).empty());
  EXPECT_TRUE(divideLinhas(r, 39).empty());
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
