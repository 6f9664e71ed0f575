#include "draw/amostra.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>

#include "apoio/erros.h"
#include "apoio/figuras.h"
#include "fotos.h"

namespace {

using std::int64_t;

const pim::VEC3B preto(0, 0, 0);

// Every sample pixel is the photograph's at the same place when both the shape and the photograph
// hold it, and black otherwise.
FOTO amostraIngenua(MAXLOCAL m, const FOTO& img, double fatorZoom) {
  m.d1 = m.d1 * fatorZoom;
  m.d2 = m.d2 * fatorZoom;
  cv::Mat_<unsigned char> g;
  mascaraMaxLocal(m, g);
  FOTO amostra(g.rows, g.cols);
  for (int i = 0; i < g.rows; ++i) {
    for (int j = 0; j < g.cols; ++j) {
      const int64_t y = int64_t{m.li} + (i - (g.rows - 1) / 2);
      const int64_t x = int64_t{m.ci} + (j - (g.cols - 1) / 2);
      const bool naFoto = y >= 0 && y < img.rows && x >= 0 && x < img.cols;
      amostra(i, j) =
          naFoto && g(i, j) == 0 ? img(static_cast<int>(y), static_cast<int>(x)) : preto;
    }
  }
  return amostra;
}

int centroSorteado(std::mt19937& sorteio, int n) {
  constexpr int longe[] = {menorInt, menorInt + 3, maiorInt - 3, maiorInt};
  if (sorteia(sorteio, 0, 19) == 0) return longe[sorteia(sorteio, 0, 3)];
  return sorteia(sorteio, -15, n + 15);
}

TEST(ExtraiAm, IgualAVersaoIngenuaEmFormasSorteadas) {
  constexpr unsigned semente = 20521;
  std::mt19937 sorteio(semente);
  int comForma = 0;
  for (int caso = 0; caso < 2000; ++caso) {
    SCOPED_TRACE(cv::format("semente %u caso %d", semente, caso));
    const FOTO img = fotoSorteada(sorteio, sorteia(sorteio, 1, 30), sorteia(sorteio, 1, 30));
    const FOTO original = img.clone();
    const MAXLOCAL m = {0.5F,
                        "cqre"[sorteia(sorteio, 0, 3)],
                        centroSorteado(sorteio, img.rows),
                        centroSorteado(sorteio, img.cols),
                        sorteia(sorteio, 2, 40) * 0.5,
                        sorteia(sorteio, 1, 40) * 0.5,
                        sorteia(sorteio, -180, 180) * 1.0};
    const double zoom = sorteia(sorteio, 6, 25) * 0.1;
    const FOTO amostra = extraiAm(m, img, zoom);
    ASSERT_TRUE(iguais(amostra, amostraIngenua(m, img, zoom))) << m.forma << ' ' << m.d1;
    ASSERT_TRUE(iguais(img, original));
    if (cv::norm(amostra, cv::NORM_INF) > 0) ++comForma;
  }
  EXPECT_GT(comForma, 500);
}

TEST(ExtraiAm, Fator1CortaExatamenteODisco) {
  std::mt19937 sorteio(1);
  const FOTO img = fotoSorteada(sorteio, 60, 60);
  const FOTO amostra = extraiAm({0.9F, 'c', 30, 28, 21, 21, 0}, img, 1);
  ASSERT_EQ(amostra.size(), cv::Size(23, 23));
  for (int i = 0; i < 23; ++i) {
    for (int j = 0; j < 23; ++j) {
      const bool noDisco = (i - 11) * (i - 11) + (j - 11) * (j - 11) <= 10 * 10;
      EXPECT_EQ(amostra(i, j), noDisco ? img(30 + i - 11, 28 + j - 11) : preto) << i << ' ' << j;
    }
  }
  EXPECT_EQ(amostra(0, 0), preto);
  EXPECT_EQ(amostra(22, 22), preto);
}

TEST(ExtraiAm, Fator2CortaODiscoDoDobroEmTornoDoMesmoCentro) {
  std::mt19937 sorteio(2);
  const FOTO img = fotoSorteada(sorteio, 60, 60);
  const FOTO amostra = extraiAm({0.9F, 'c', 30, 28, 21, 21, 0}, img, 2);
  ASSERT_EQ(amostra.size(), cv::Size(45, 45));
  for (int i = 0; i < 45; ++i) {
    for (int j = 0; j < 45; ++j) {
      const bool noDisco = (i - 22) * (i - 22) + (j - 22) * (j - 22) <= 21 * 21;
      EXPECT_EQ(amostra(i, j), noDisco ? img(30 + i - 22, 28 + j - 22) : preto) << i << ' ' << j;
    }
  }
}

TEST(ExtraiAm, OZoomMultiplicaOsDoisTamanhosENaoOAngulo) {
  std::mt19937 sorteio(3);
  const FOTO img = fotoSorteada(sorteio, 60, 60);
  const MAXLOCAL m = {0.9F, 'r', 30, 30, 12, 4, 30};
  const MAXLOCAL dobro = {0.9F, 'r', 30, 30, 24, 8, 30};
  EXPECT_TRUE(iguais(extraiAm(m, img, 2), extraiAm(dobro, img, 1)));
  const MAXLOCAL girado = {0.9F, 'r', 30, 30, 24, 8, 60};
  EXPECT_FALSE(iguais(extraiAm(m, img, 2), extraiAm(girado, img, 1)));
}

TEST(ExtraiAm, PixelsForaDaFotografiaSaoPretos) {
  const FOTO img(40, 40, pim::VEC3B(200, 100, 50));
  const FOTO amostra = extraiAm({0.9F, 'q', 20, 2, 8, 8, 0}, img, 1);
  ASSERT_EQ(amostra.size(), cv::Size(13, 13));
  // The square spans 9 pixels, from two columns left of the photograph on.
  for (int j = 0; j < 13; ++j) {
    EXPECT_EQ(amostra(6, j), j >= 4 && j < 11 ? pim::VEC3B(200, 100, 50) : preto) << j;
  }
}

TEST(ExtraiAm, MascaraVaziaViolaAAfirmacao) {
  const FOTO img(9, 9, preto);
  const char* texto =
      "vorplex: cv::Mat_<cv::Vec<unsigned char, 3> > extraiAm(MAXLOCAL, "
      "cv::Mat_<cv::Vec<unsigned char, 3> >, double): "
      "Assertion `g.rows%2==1 && g.cols%2==1' failed.";
  EXPECT_EQ(assercaoSemLinha([&] { extraiAm({0.9F, 'x', 4, 4, 5, 5, 0}, img, 1); }), texto);
  EXPECT_EQ(assercaoSemLinha([&] { extraiAm({0.9F, 'c', 4, 4, 5, 5, 0}, img, 0.1); }), texto);
  EXPECT_EQ(assercaoSemLinha([&] { extraiAm({0.9F, 'q', 4, 4, 5, 5, 0}, img, -1); }), texto);
}

TEST(ExtraiAm, TamanhoSemImagemPossivelEhErro) {
  const FOTO img(9, 9, preto);
  EXPECT_EQ(erroDe([&] {
              extraiAm({0.9F, 'c', 4, 4, 5, 5, 0}, img, 1e9);
            }),
            "Erro: Forma grande demais c 5e+09 5e+09");
}

}  // namespace
