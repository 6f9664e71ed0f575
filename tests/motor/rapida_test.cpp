#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <tuple>

#include "detect/correlacao.h"
#include "kernels/formas.h"
#include "kernels/normaliza.h"
#include "motor/caminho.h"
#include "pim/converte.h"
#include "referencia/correlacao.h"

using namespace motor;

namespace {

constexpr unsigned sementeDeFotos = 20;

cv::Mat_<float> fotografia(int rows, int cols, std::mt19937& g) {
  std::uniform_int_distribution<int> cinza(0, 255);
  cv::Mat_<unsigned char> img(rows, cols);
  for (unsigned char& p : img) p = static_cast<unsigned char>(cinza(g));
  cv::Mat_<float> f;
  pim::converte(img, f, 1 / 255.0, 0.0);
  return f;
}

MASCARA sorteiaKernel(std::mt19937& g, double maior) {
  std::uniform_real_distribution<double> tamanho(2.9, maior);
  std::uniform_real_distribution<double> angulo(0, 180);
  MASCARA m;
  m.forma = "cqre"[g() % 4];
  m.d1 = tamanho(g);
  m.d2 = m.forma == 'r' || m.forma == 'e' ? tamanho(g) : m.d1;
  m.d1 = std::max(m.d1, 4.3);
  m.d2 = std::max(m.d2, 4.3);
  m.ang = angulo(g);
  m.sPir = static_cast<int>(g() % 4);
  if (m.forma == 'c') kernelCirculo(m.kernel, m.d1);
  if (m.forma == 'q') kernelQuadrado(m.kernel, m.d1, m.ang);
  if (m.forma == 'r') kernelRetangulo(m.kernel, m.d1, m.d2, m.ang);
  if (m.forma == 'e') kernelElipse(m.kernel, m.d1, m.d2, m.ang);
  return m;
}

// Checks the maps of a group against direct sums: the best value to 1e-6, and the kernel named to
// reach it.
void confereMapas(const PIRAMIDE& piramide, const std::vector<MASCARA>& kernels) {
  MELHORCORREL melhor;
  MELHORKERNEL qual;
  correlaGrupo(piramide, kernels, 0, static_cast<int>(kernels.size()) - 1, melhor, qual);
  for (std::size_t L = 0; L < piramide.size(); ++L) {
    for (int l = 0; l < piramide[L].rows; ++l) {
      for (int c = 0; c < piramide[L].cols; ++c) {
        double maior = -1;
        double doEscolhido = -1;
        for (std::size_t k = 0; k < kernels.size(); ++k) {
          if (kernels[k].sPir < static_cast<int>(L)) continue;
          const double x = referencia::somaEm(piramide[L], kernels[k].kernel, l, c);
          maior = std::max(maior, x);
          if (static_cast<int>(k) == qual[L](l, c)) doEscolhido = x;
        }
        ASSERT_NEAR(melhor[L](l, c), maior, 1e-6) << "L=" << L << " l=" << l << " c=" << c;
        ASSERT_NEAR(doEscolhido, maior, 1e-6) << "L=" << L << " l=" << l << " c=" << c;
      }
    }
  }
}

// Checks that planes of 16 bits, as the kernels are to be divided for them, give the maps of 32
// bits to the last bit, in every instruction set.
void confere16Bits(const cv::Mat_<float>& foto, const std::vector<MASCARA>& kernels,
                   DIVISAO divisao) {
  const NIVEL nivel = representa(foto);
  const GRUPO grupo = esquematiza(kernels, 0, static_cast<int>(kernels.size()) - 1);
  ASSERT_EQ(grupo.divisao, divisao);
  ASSERT_FALSE(nivel.bytes.empty());
  NIVEL semBytes = nivel;
  semBytes.bytes.release();
  for (const AVALIADOR& a : avaliadores()) {
    cv::Mat_<float> curta;
    cv::Mat_<float> longa;
    cv::Mat_<int> qualCurta;
    cv::Mat_<int> qualLonga;
    const bool porColunas = divisao == DIVISAO::colunas;
    const bool desce = a.descendo != nullptr;
    EXPECT_EQ(correlaCom(a, nivel, 0, grupo, curta, qualCurta), !porColunas ? CAMINHO::curtos
                                                                : desce     ? CAMINHO::descendo
                                                                            : CAMINHO::inteiros);
    EXPECT_EQ(correlaCom(a, semBytes, 0, grupo, longa, qualLonga), CAMINHO::inteiros);
    EXPECT_EQ(cv::countNonZero(curta != longa), 0) << a.nome;
    EXPECT_EQ(cv::countNonZero(qualCurta != qualLonga), 0) << a.nome;
  }
}

}  // namespace

TEST(Rapida, IgualASomaDiretaEmImagensDe1PixelAMaioresQueOKernel) {
  std::mt19937 g(sementeDeFotos);
  for (const auto& [rows, cols] : {std::pair{1, 1}, {1, 7}, {5, 2}, {17, 33}, {70, 41}}) {
    PIRAMIDE piramide;
    constroiPiramide(piramide, fotografia(rows, cols, g), 0);
    std::vector<MASCARA> kernels;
    for (int k = 0; k < 4; ++k) kernels.push_back(sorteiaKernel(g, 24));
    confereMapas(piramide, kernels);
  }
}

TEST(Rapida, IgualASomaDiretaComValoresReaisQuaisquer) {
  std::mt19937 g(sementeDeFotos);
  std::uniform_real_distribution<float> valor(-1.0F, 1.0F);
  cv::Mat_<float> img(30, 37);
  for (float& x : img) x = valor(g);
  std::vector<MASCARA> kernels = {sorteiaKernel(g, 15), sorteiaKernel(g, 15)};
  confereMapas({img}, kernels);
}

TEST(Rapida, IgualASomaDiretaEmImagemSaturada) {
  std::mt19937 g(sementeDeFotos);
  cv::Mat_<float> img(40, 40, 0.0F);
  for (float& x : img) x = g() % 2 == 0 ? 0.0F : 1.0F;
  PIRAMIDE piramide;
  constroiPiramide(piramide, img, 4);
  confereMapas(piramide, {sorteiaKernel(g, 20), sorteiaKernel(g, 20)});
}

// Photographs that drive the sums over ring and core to their extremes: the ring of a kernel white
// and its core black, or the reverse.
TEST(Rapida, SomasExtremasNaoTransbordam) {
  for (const double d : {15.0, 18.0, 20.5, 24.0, 29.0, 37.0, 46.0}) {
    MASCARA m;
    kernelCirculo(m.kernel, d);
    const cv::Mat_<unsigned char> nucleo(m.kernel < 0);
    for (const float claro : {0.0F, 1.0F}) {
      cv::Mat_<float> img(m.kernel.rows + 3, m.kernel.cols + 3, claro);
      img(cv::Rect(1, 2, nucleo.cols, nucleo.rows)).setTo(1 - claro, nucleo);
      confereMapas({img}, {m});
    }
  }
}

TEST(Rapida, SomasDe16E32BitsDaoMapasIguais) {
  std::mt19937 g(sementeDeFotos);
  for (int vez = 0; vez < 8; ++vez) {
    std::vector<MASCARA> kernels;
    for (int k = 0; k < 4; ++k) kernels.push_back(sorteiaKernel(g, 24));
    confere16Bits(fotografia(90, 310, g), kernels, DIVISAO::linhas);
  }
}

// More rows than a block and than a strip's work area, more columns than a strip.
TEST(Rapida, KernelsGrandesDescendoEm16BitsDaoOsMapasDe32) {
  std::mt19937 g(sementeDeFotos);
  for (const auto& [rows, cols, maior] :
       {std::tuple{1, 1, 90}, {3, 700, 90}, {500, 5, 120}, {150, 310, 90}, {150, 420, 260}}) {
    MASCARA grande;
    kernelQuadrado(grande.kernel, maior, 7);
    std::vector<MASCARA> kernels = {sorteiaKernel(g, maior), grande, sorteiaKernel(g, 24),
                                    sorteiaKernel(g, maior)};
    for (MASCARA& m : kernels) m.sPir = 0;
    confere16Bits(fotografia(rows, cols, g), kernels, DIVISAO::colunas);
  }
}

// What the sums of a part change by from row to row is largest where a kernel as wide as the
// picture's edges passes them: black above white, or the reverse.
TEST(Rapida, MudancasExtremasDeLinhaALinhaNaoTransbordam) {
  for (const double lado : {90.0, 100.0, 127.0, 128.0, 129.0, 181.0, 240.0, 256.0, 257.0}) {
    MASCARA m;
    kernelQuadrado(m.kernel, lado, 0);
    m.sPir = 0;
    for (const double claro : {0.0, 1.0}) {
      cv::Mat_<float> img(130, 40, static_cast<float>(claro));
      img.rowRange(60, 130).setTo(1 - claro);
      confere16Bits(img, {m}, DIVISAO::colunas);
    }
  }
}

// The sums over the pieces that a strip starts with, driven to their extremes by pictures of one
// tone, where all else is 0.
TEST(Rapida, PedacosExtremosNaoTransbordam) {
  MASCARA m;
  kernelRetangulo(m.kernel, 520, 40, 0);
  m.sPir = 0;
  for (const double tom : {0.0, 1.0}) {
    const cv::Mat_<float> img(70, 30, static_cast<float>(tom));
    confere16Bits(img, {m}, DIVISAO::colunas);
  }
}

TEST(Rapida, KernelDeMuitasColunasFicaEm32Bits) {
  std::mt19937 g(sementeDeFotos);
  MASCARA m;
  kernelRetangulo(m.kernel, 1400, 30, 0);
  m.sPir = 0;
  EXPECT_EQ(esquematiza({m}, 0, 0).divisao, DIVISAO::nenhuma);
  cv::Mat_<float> img = fotografia(4, 9, g);
  confereMapas({img}, {m});
}

TEST(Rapida, ImagemConstanteDaZeroExatoEOPrimeiroKernelEmTodosOsPixels) {
  std::mt19937 g(sementeDeFotos);
  for (const float valor : {0.0F, 77 / 255.0F, 1.0F}) {
    PIRAMIDE piramide;
    constroiPiramide(piramide, cv::Mat_<float>(90, 80, valor), 4);
    std::vector<MASCARA> kernels;
    for (int k = 0; k < 5; ++k) kernels.push_back(sorteiaKernel(g, 30));
    kernels[0].sPir = 3;
    MELHORCORREL melhor;
    MELHORKERNEL qual;
    correlaGrupo(piramide, kernels, 0, 4, melhor, qual);
    for (std::size_t L = 0; L < piramide.size(); ++L) {
      for (int i = 0; i < static_cast<int>(melhor[L].total()); ++i) {
        ASSERT_EQ(melhor[L](i / melhor[L].cols, i % melhor[L].cols), 0.0F);
        ASSERT_EQ(qual[L](i / melhor[L].cols, i % melhor[L].cols), 0);
      }
    }
  }
}

TEST(Rapida, KernelsIguaisEmpatamEOPrimeiroFica) {
  std::mt19937 g(sementeDeFotos);
  const MASCARA m = sorteiaKernel(g, 20);
  PIRAMIDE piramide = {fotografia(40, 50, g)};
  MELHORCORREL melhor;
  MELHORKERNEL qual;
  correlaGrupo(piramide, {m, m, m}, 0, 2, melhor, qual);
  EXPECT_EQ(cv::countNonZero(qual[0]), 0);
}

TEST(Rapida, KernelDeOutrosValoresVaiPeloFiltroGeralComOMesmoContrato) {
  std::mt19937 g(sementeDeFotos);
  MASCARA estranho;
  estranho.kernel = (cv::Mat_<float>(3, 3) << 0, 0.5F, 0, 0.25F, -1, 0.25F, 0, 0, 0);
  confereMapas({fotografia(20, 25, g)}, {estranho, sorteiaKernel(g, 10)});
}

TEST(Rapida, AreaGrandeDemaisPara32BitsPassaADouble) {
  // Level 1 holds multiples of 1/65280: a region of 66000 pixels would overflow.
  std::mt19937 g(sementeDeFotos);
  PIRAMIDE piramide;
  constroiPiramide(piramide, cv::Mat_<float>(24, 20, 1.0F), 2);
  piramide[1](3, 3) = 0.25F;
  MASCARA m;
  kernelCirculo(m.kernel, 300);
  m.sPir = 1;
  confereMapas(piramide, {m});
}

TEST(Rapida, FaixasEBlocosJuntamSeSemEmenda) {
  // More columns than a strip and more rows than a block, against the plain form.
  std::mt19937 g(sementeDeFotos);
  PIRAMIDE piramide;
  constroiPiramide(piramide, fotografia(150, 601, g), 4);
  std::vector<MASCARA> kernels;
  for (int k = 0; k < 6; ++k) kernels.push_back(sorteiaKernel(g, 30));
  MELHORCORREL rapida;
  MELHORCORREL simples;
  MELHORKERNEL qualRapida;
  MELHORKERNEL qualSimples;
  correlaGrupo(piramide, kernels, 0, 5, rapida, qualRapida);
  referencia::correlaGrupo(piramide, kernels, 0, 5, simples, qualSimples);
  for (std::size_t L = 0; L < piramide.size(); ++L) {
    EXPECT_LT(cv::norm(rapida[L], simples[L], cv::NORM_INF), 1e-6);
  }
}
