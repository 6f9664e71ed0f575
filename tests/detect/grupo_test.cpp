#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "apoio/detector.h"
#include "detect/correlacao.h"
#include "kernels/normaliza.h"
#include "referencia/correlacao.h"

namespace {

using FLOAT = cv::Mat_<float>;

MASCARA nucleo(const FLOAT& K, int sPir) {
  MASCARA m;
  m.kernel = K;
  m.sPir = sPir;
  return m;
}

// The kernel of a random shape, the fixed tables of the smallest circles among them.
FLOAT formaSorteada(std::mt19937& g, double maior) {
  std::uniform_real_distribution<double> tamanho(4.3, maior);
  std::uniform_real_distribution<double> angulo(0, 180);
  const double ang = g() % 2 == 0 ? 15.0 * static_cast<double>(g() % 12) : angulo(g);
  FLOAT K;
  switch (g() % 4) {
    case 0:
      kernelCirculo(K, tamanho(g) - 3.5);
      break;
    case 1:
      kernelQuadrado(K, tamanho(g), ang);
      break;
    case 2:
      kernelRetangulo(K, tamanho(g), tamanho(g), ang);
      break;
    default:
      kernelElipse(K, tamanho(g), tamanho(g), ang);
  }
  return K;
}

bool todos(const FLOAT& img, float x) {
  return cv::countNonZero(img != x) == 0;
}

bool todosInt(const cv::Mat_<int>& img, int x) {
  return cv::countNonZero(img != x) == 0;
}

struct MELHOR {
  MELHORCORREL correl;
  MELHORKERNEL kernel;

  MELHOR(const PIRAMIDE& p, const std::vector<MASCARA>& v, int primeiro, int ultimo) {
    correlaGrupo(p, v, primeiro, ultimo, correl, kernel);
  }
};

// One pixel of one level against the direct sums of the kernels applied there.
void conferePixel(const MELHOR& grupo, const PIRAMIDE& p, const std::vector<MASCARA>& v,
                  cv::Vec2i faixa, std::size_t L, int l, int c, double folga) {
  double melhor = -1;
  const int k = grupo.kernel[L](l, c);
  double doEscolhido = -1;
  for (int i = faixa[0]; i <= faixa[1]; ++i) {
    const MASCARA& m = v[static_cast<std::size_t>(i)];
    if (m.sPir < static_cast<int>(L)) continue;
    const double soma = referencia::somaEm(p[L], m.kernel, l, c);
    melhor = std::max(melhor, soma);
    if (i == k) doEscolhido = soma;
  }
  ASSERT_NEAR(static_cast<double>(grupo.correl[L](l, c)), melhor, folga);
  ASSERT_NEAR(doEscolhido, melhor, 2 * folga) << "kernel " << k;
}

void confere(const PIRAMIDE& p, const std::vector<MASCARA>& v, int primeiro, int ultimo,
             double folga = tolerancia) {
  const MELHOR grupo(p, v, primeiro, ultimo);
  ASSERT_EQ(grupo.correl.size(), p.size());
  ASSERT_EQ(grupo.kernel.size(), p.size());
  for (std::size_t L = 0; L < p.size(); ++L) {
    ASSERT_EQ(grupo.correl[L].size(), p[L].size());
    ASSERT_EQ(grupo.kernel[L].size(), p[L].size());
    for (int l = 0; l < p[L].rows; ++l) {
      for (int c = 0; c < p[L].cols; ++c) {
        SCOPED_TRACE(cv::format("nivel %d linha %d coluna %d", static_cast<int>(L), l, c));
        ASSERT_NO_FATAL_FAILURE(conferePixel(grupo, p, v, {primeiro, ultimo}, L, l, c, folga));
      }
    }
  }
}

// A random group of six kernels, of the family that `kernel` draws, at random last levels.
template <class KERNEL>
void confereSorteados(unsigned semente, int vezes, KERNEL kernel,
                      FLOAT (*foto)(std::mt19937&, int, int)) {
  SCOPED_TRACE(semente);
  std::mt19937 g(semente);
  for (int vez = 0; vez < vezes; ++vez) {
    SCOPED_TRACE(vez);
    const int rows = 1 + static_cast<int>(g() % 45);
    const int cols = 1 + static_cast<int>(g() % 45);
    const PIRAMIDE p = piramideDe(foto(g, rows, cols), 1 + static_cast<int>(g() % 4));
    std::vector<MASCARA> v;
    for (int k = 0; k < 6; ++k) v.push_back(nucleo(kernel(g), static_cast<int>(g() % 6) - 1));
    const int primeiro = static_cast<int>(g() % 3);
    ASSERT_NO_FATAL_FAILURE(confere(p, v, primeiro, primeiro + static_cast<int>(g() % 4)));
  }
}

}  // namespace

TEST(CorrelaGrupo, KernelsSorteadosSaoOMaximoDasSomasDiretas) {
  const auto kernel = [](std::mt19937& g) {
    return pesosSorteados(g, 3 + 2 * static_cast<int>(g() % 12));
  };
  confereSorteados(33100, 12, kernel, imagemSorteada);
}

TEST(CorrelaGrupo, FormasSobreFotosSaoOMaximoDasSomasDiretas) {
  const auto kernel = [](std::mt19937& g) { return formaSorteada(g, 24); };
  confereSorteados(33101, 25, kernel, cinzaSorteada);
}

TEST(CorrelaGrupo, FormasSobreImagensDeQualquerValorSaoOMaximoDasSomasDiretas) {
  const auto kernel = [](std::mt19937& g) { return formaSorteada(g, 24); };
  confereSorteados(33102, 12, kernel, imagemSorteada);
}

TEST(CorrelaGrupo, FormaJuntoDeKernelQualquerEhOMaximoDosDois) {
  std::mt19937 g(33103);
  const PIRAMIDE p = piramideDe(cinzaSorteada(g, 40, 33), 3);
  const std::vector<MASCARA> v = {nucleo(formaSorteada(g, 14), 2), nucleo(pesosSorteados(g, 9), 1),
                                  nucleo(formaSorteada(g, 14), 0)};
  confere(p, v, 0, 2);
}

TEST(CorrelaGrupo, ValoresNegativosEGrandesTemErroDoSeuTamanho) {
  std::mt19937 g(33104);
  for (const float escala : {300.0F, 1e6F, 1e20F}) {
    FLOAT img = imagemSorteada(g, 30, 30);
    for (float& x : img) x = (x - 0.5F) * escala;
    const std::vector<MASCARA> v = {nucleo(formaSorteada(g, 14), 0),
                                    nucleo(formaSorteada(g, 14), 0)};
    SCOPED_TRACE(escala);
    confere({img}, v, 0, 1, tolerancia * static_cast<double>(escala));
  }
}

TEST(CorrelaGrupo, FotoGrandeConferidaPorAmostra) {
  constexpr unsigned semente = 33105;
  SCOPED_TRACE(semente);
  std::mt19937 g(semente);
  const PIRAMIDE p = piramideDe(cinzaSorteada(g, 611, 1303), 3);
  std::vector<MASCARA> v;
  for (int k = 0; k < 6; ++k) v.push_back(nucleo(formaSorteada(g, 40), k % 3));
  const MELHOR grupo(p, v, 0, 5);
  for (std::size_t L = 0; L < p.size(); ++L) {
    for (int i = 0; i < 1200; ++i) {
      // One in four on the border of the image.
      const int l = i % 4 == 0 ? 0 : static_cast<int>(g() % static_cast<unsigned>(p[L].rows));
      const int c =
          i % 4 == 1 ? p[L].cols - 1 : static_cast<int>(g() % static_cast<unsigned>(p[L].cols));
      ASSERT_NO_FATAL_FAILURE(conferePixel(grupo, p, v, {0, 5}, L, l, c, tolerancia));
    }
  }
}

TEST(CorrelaGrupo, ImagemLisaDaUmValorSoPertoDeZero) {
  std::mt19937 g(33106);
  const PIRAMIDE p = piramideDe(FLOAT(50, 60, 0.2F), 3);
  std::vector<MASCARA> v;
  for (int k = 0; k < 5; ++k) v.push_back(nucleo(formaSorteada(g, 20), 2));
  const MELHOR grupo(p, v, 0, 4);
  for (std::size_t L = 0; L < 3; ++L) {
    EXPECT_LE(cv::norm(grupo.correl[L], cv::NORM_INF), tolerancia);
    EXPECT_TRUE(todos(grupo.correl[L], grupo.correl[L](0, 0)));
  }
}

TEST(CorrelaGrupo, VizinhancasIguaisTemValoresIguais) {
  std::mt19937 g(33107);
  const FLOAT ladrilho = cinzaSorteada(g, 16, 16);
  FLOAT img(160, 224);
  for (int l = 0; l < img.rows; ++l) {
    for (int c = 0; c < img.cols; ++c) img(l, c) = ladrilho(l % 16, c % 16);
  }
  std::vector<MASCARA> v;
  for (int k = 0; k < 5; ++k) v.push_back(nucleo(formaSorteada(g, 20), 0));
  const MELHOR grupo({img}, v, 0, 4);
  for (int l = 32; l < 128; ++l) {
    for (int c = 32; c < 192; ++c) {
      ASSERT_EQ(grupo.correl[0](l, c), grupo.correl[0](32 + l % 16, 32 + c % 16));
      ASSERT_EQ(grupo.kernel[0](l, c), grupo.kernel[0](32 + l % 16, 32 + c % 16));
    }
  }
}

TEST(CorrelaGrupo, EmpateFicaComOMenorIndice) {
  std::mt19937 g(33200);
  const std::vector<FLOAT> kernels = {pesosSorteados(g, 5), pesosSorteados(g, 17),
                                      formaSorteada(g, 9), formaSorteada(g, 30)};
  for (const FLOAT& K : kernels) {
    const std::vector<MASCARA> v = {nucleo(formaSorteada(g, 9), 0), nucleo(K, 0),
                                    nucleo(K.clone(), 0), nucleo(K, 0)};
    const MELHOR grupo({cinzaSorteada(g, 40, 40)}, v, 1, 3);
    EXPECT_TRUE(todosInt(grupo.kernel[0], 1)) << K.rows;
  }
}

TEST(CorrelaGrupo, SPirNegativoNaoContribui) {
  std::mt19937 g(33300);
  const PIRAMIDE p = piramideDe(cinzaSorteada(g, 16, 16), 2);
  const std::vector<MASCARA> v = {nucleo(formaSorteada(g, 9), -1), nucleo(formaSorteada(g, 9), 0),
                                  nucleo(formaSorteada(g, 9), -7)};
  const MELHOR grupo(p, v, 0, 2);
  EXPECT_TRUE(todosInt(grupo.kernel[0], 1));
  EXPECT_TRUE(todosInt(grupo.kernel[1], -1));
  EXPECT_TRUE(todos(grupo.correl[1], -1.0F));
}

TEST(CorrelaGrupo, NiveisAcimaDoSPirFicamComMenosUm) {
  std::mt19937 g(33301);
  const PIRAMIDE p = piramideDe(cinzaSorteada(g, 32, 32), 4);
  const MELHOR grupo(p, {nucleo(formaSorteada(g, 9), 1)}, 0, 0);
  EXPECT_TRUE(todosInt(grupo.kernel[1], 0));
  for (const std::size_t L : {2U, 3U}) {
    EXPECT_TRUE(todos(grupo.correl[L], -1.0F));
    EXPECT_TRUE(todosInt(grupo.kernel[L], -1));
  }
}

TEST(CorrelaGrupo, PiramideDeUmNivelLimitaQualquerSPir) {
  std::mt19937 g(33302);
  const MELHOR grupo({cinzaSorteada(g, 16, 16)}, {nucleo(formaSorteada(g, 9), 2147483647)}, 0, 0);
  ASSERT_EQ(grupo.correl.size(), 1U);
  EXPECT_TRUE(todosInt(grupo.kernel[0], 0));
}

TEST(CorrelaGrupo, FaixaVaziaDaListasDeMenosUm) {
  const PIRAMIDE p = piramideDe(FLOAT(16, 12, 0.5F), 2);
  MELHOR grupo(p, {}, 0, -1);
  ASSERT_EQ(grupo.correl.size(), 2U);
  for (std::size_t L = 0; L < 2; ++L) {
    EXPECT_EQ(grupo.correl[L].size(), p[L].size());
    EXPECT_TRUE(todos(grupo.correl[L], -1.0F));
    EXPECT_EQ(grupo.kernel[L].size(), p[L].size());
    EXPECT_TRUE(todosInt(grupo.kernel[L], -1));
  }
}

TEST(CorrelaGrupo, ListasSaoRefeitasACadaGrupo) {
  std::mt19937 g(33303);
  const std::vector<MASCARA> v = {nucleo(formaSorteada(g, 9), 3), nucleo(formaSorteada(g, 9), 0)};
  MELHOR grupo(piramideDe(cinzaSorteada(g, 32, 32), 4), v, 0, 1);
  const PIRAMIDE menor = {cinzaSorteada(g, 8, 8)};
  correlaGrupo(menor, v, 1, 1, grupo.correl, grupo.kernel);
  ASSERT_EQ(grupo.correl.size(), 1U);
  EXPECT_LE(maiorDiferenca(grupo.correl[0], referencia::somaDireta(menor[0], v[1].kernel)),
            tolerancia);
  EXPECT_TRUE(todosInt(grupo.kernel[0], 1));
}

TEST(CorrelaGrupo, ValorIgualAMenosUmNuncaEhGuardado) {
  FLOAT img(9, 9, 0.0F);
  img(4, 4) = 1.0F;
  FLOAT K(3, 3, 0.0F);
  K(1, 1) = -1.0F;
  const MELHOR grupo({img}, {nucleo(K, 0)}, 0, 0);
  EXPECT_EQ(grupo.correl[0](4, 4), -1.0F);
  EXPECT_EQ(grupo.kernel[0](4, 4), -1);
  EXPECT_EQ(grupo.kernel[0](3, 4), 0);
}
