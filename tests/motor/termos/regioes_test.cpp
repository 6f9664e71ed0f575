#include "motor/termos/regioes.h"

#include <gtest/gtest.h>

#include "kernels/normaliza.h"

using namespace motor;

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

TEST(DivideColunas, CadaParteTemPoucosTrechosETodasJuntasSaoOKernel) {
  cv::Mat_<float> K;
  kernelElipse(K, 90, 45, 30);
  const REGIOES r = regioesDoKernel(K).value();
  const auto partes = divideColunas(r, 25);
  ASSERT_GT(partes.size(), 3U);
  REGIAO somaTudo(K.size(), 0);
  REGIAO somaNucleo(K.size(), 0);
  for (const cv::Range& x : partes) {
    const REGIAO tudo = soColunas(r.tudo, x);
    REGIAO colunas;  // 1 where the part has pixels: one stretch each
    cv::reduce(tudo, colunas, 0, cv::REDUCE_MAX);
    EXPECT_LE(cv::countNonZero(colunas), 25);
    somaTudo += tudo;
    somaNucleo += soColunas(r.nucleo, x);
  }
  EXPECT_EQ(cv::countNonZero(somaTudo != r.tudo), 0);
  EXPECT_EQ(cv::countNonZero(somaNucleo != r.nucleo), 0);
}

TEST(DivideColunas, ContaTodosOsTrechosDeUmaColuna) {
  const REGIAO listras = (REGIAO(5, 3) << 1, 1, 1,  //
                          0, 0, 0,                  //
                          1, 1, 0,                  //
                          0, 0, 0,                  //
                          1, 1, 0);
  const REGIOES r{listras, REGIAO(listras.size(), 0), 7, 0};
  EXPECT_EQ(divideColunas(r, 7).size(), 1U);
  EXPECT_EQ(divideColunas(r, 6).size(), 2U);
  EXPECT_EQ(divideColunas(r, 3).size(), 3U);
  EXPECT_TRUE(divideColunas(r, 2).empty());
}

TEST(PedacosDaRegiao, SaoOsPixelsDaRegiaoEmPedacosDoTamanhoPedido) {
  cv::Mat_<float> K;
  kernelQuadrado(K, 40, 20);
  REGIAO regiao = regioesDoKernel(K)->tudo;
  regiao(regiao.rows / 2, regiao.cols / 2) = 0;  // a row of two stretches
  REGIAO vezes(regiao.size(), 0);
  for (const PEDACO& t : pedacosDaRegiao(regiao, 7)) {
    EXPECT_LE(t.ultima - t.antes, 7);
    const int meio = regiao.cols / 2;
    vezes.row(t.linha + regiao.rows / 2).colRange(meio + t.antes + 1, meio + t.ultima + 1) += 1;
  }
  EXPECT_EQ(cv::countNonZero(vezes != regiao), 0);
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
