#include "draw/formas.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>

#include "apoio/erros.h"
#include "apoio/figuras.h"
#include "fotos.h"
#include "kernels/formas.h"

namespace {

using std::int64_t;

cv::Mat_<unsigned char> contornoDe(const MAXLOCAL& m) {
  cv::Mat_<unsigned char> g;
  if (m.forma == 'c') contornoCirculo(g, m.d1);
  if (m.forma == 'q') contornoQuadrado(g, m.d1, m.ang);
  if (m.forma == 'r') contornoRetangulo(g, m.d1, m.d2, m.ang);
  if (m.forma == 'e') contornoElipse(g, m.d1, m.d2, m.ang);
  return g;
}

// Asks of every pixel of the image whether the outline covers it: the way back from image to
// outline, where the program goes from outline to image.
FOTO tracaIngenuo(const FOTO& img, const MAXLOCAL& m, bool bold, const pim::VEC3B& cor) {
  const cv::Mat_<unsigned char> g = contornoDe(m);
  const auto marcado = [&g](int64_t y, int64_t x) {
    if (y < 0 || y >= g.rows || x < 0 || x >= g.cols) return false;
    return g(static_cast<int>(y), static_cast<int>(x)) == 0;
  };
  FOTO copia = img.clone();
  for (int l = 0; l < img.rows; ++l) {
    for (int c = 0; c < img.cols; ++c) {
      const int64_t y = int64_t{l} - m.li + (g.rows - 1) / 2;
      const int64_t x = int64_t{c} - m.ci + (g.cols - 1) / 2;
      bool cobre = marcado(y, x);
      if (bold) {
        cobre = cobre || marcado(y - 1, x) || marcado(y + 1, x) || marcado(y, x - 1) ||
                marcado(y, x + 1);
        cobre = cobre && y >= 0 && y < g.rows && x >= 0 && x < g.cols - 1;
      }
      if (cobre) copia(l, c) = cor;
    }
  }
  return copia;
}

// A coordinate in the image, near it, or now and then as far away as an int goes.
int coordenada(std::mt19937& sorteio, int n) {
  constexpr int longe[] = {menorInt, menorInt + 1,  menorInt + 20, -1000000,
                           1000000,  maiorInt - 20, maiorInt - 1,  maiorInt};
  if (sorteia(sorteio, 0, 19) == 0) return longe[sorteia(sorteio, 0, 7)];
  return sorteia(sorteio, -25, n + 25);
}

MAXLOCAL sorteada(std::mt19937& sorteio, const FOTO& img) {
  const double d1 = sorteia(sorteio, 0, 60) * 0.5 + 0.7;
  const double d2 = sorteia(sorteio, 0, 60) * 0.5 + 0.1;
  return deteccao("cqre"[sorteia(sorteio, 0, 3)], coordenada(sorteio, img.rows),
                  coordenada(sorteio, img.cols), d1, d2, sorteia(sorteio, -360, 360) * 0.5);
}

TEST(TracaForma, IgualAVersaoIngenuaEmFormasSorteadas) {
  constexpr unsigned semente = 20511;
  std::mt19937 sorteio(semente);
  int desenhadas = 0;
  for (int caso = 0; caso < 2000; ++caso) {
    SCOPED_TRACE(cv::format("semente %u caso %d", semente, caso));
    const FOTO img = fotoSorteada(sorteio, sorteia(sorteio, 1, 40), sorteia(sorteio, 1, 40));
    const MAXLOCAL m = sorteada(sorteio, img);
    for (const bool bold : {false, true}) {
      FOTO tracada = img.clone();
      tracaForma(tracada, m, bold, vermelho);
      ASSERT_TRUE(iguais(tracada, tracaIngenuo(img, m, bold, vermelho)))
          << m.forma << ' ' << m.li << ' ' << m.ci << ' ' << m.d1 << ' ' << m.d2 << ' ' << m.ang;
      if (!iguais(tracada, img)) ++desenhadas;
    }
  }
  EXPECT_GT(desenhadas, 500);
}

TEST(TracaForma, CirculoPequenoFinoMostraSoOAnel) {
  FOTO img = preta(5, 7);
  tracaForma(img, deteccao('c', 2, 3, 3), false, vermelho);
  EXPECT_EQ(retrato(img), (RETRATO{".......",  //
                                   "..RRR..",  //
                                   "..R.R..",  //
                                   "..RRR..",  //
                                   "......."}));
}

TEST(TracaForma, BoldEngrossaUmPixelNasQuatroDirecoes) {
  FOTO img = preta(5, 7);
  tracaForma(img, deteccao('c', 2, 3, 1), true, vermelho);
  // The last column of the 3 by 3 outline image is not visited.
  EXPECT_EQ(retrato(img), (RETRATO{".......",  //
                                   "...R...",  //
                                   "..RR...",  //
                                   "...R...",  //
                                   "......."}));
}

TEST(TracaForma, ContornoQueChegaAUltimaColunaPerdeElaEmBold) {
  const MAXLOCAL m = deteccao('e', 3, 3, 5, 5);
  FOTO fino = preta(7, 7);
  tracaForma(fino, m, false, vermelho);
  EXPECT_EQ(retrato(fino)[3], ".R...R.");
  FOTO bold = preta(7, 7);
  tracaForma(bold, m, true, vermelho);
  EXPECT_EQ(retrato(bold)[3], ".RR.R..");
  for (int l = 0; l < 7; ++l) EXPECT_EQ(bold(l, 5), pim::VEC3B(0, 0, 0)) << l;
}

TEST(TracaForma, ContornoDeUmaSoColunaSomeEmBold) {
  FOTO img = preta(3, 3);
  tracaForma(img, deteccao('q', 1, 1, 0), true, vermelho);
  EXPECT_TRUE(iguais(img, preta(3, 3)));
  tracaForma(img, deteccao('q', 1, 1, 0), false, vermelho);
  EXPECT_EQ(retrato(img), (RETRATO{"...", ".R.", "..."}));
}

TEST(TracaForma, LetraDesconhecidaNaoDesenhaNadaFino) {
  FOTO img = preta(9, 9);
  tracaForma(img, deteccao('x', 4, 4, 5, 5), false, vermelho);
  EXPECT_TRUE(iguais(img, preta(9, 9)));
}

TEST(TracaForma, LetraDesconhecidaEmBoldEhErro) {
  FOTO img = preta(9, 9);
  EXPECT_EQ(erroDe([&] { tracaForma(img, deteccao('x', 4, 4, 5, 5), true, vermelho); }),
            "Erro: IMG_::constructor _mat nulo");
}

TEST(TracaForma, CirculoSemContornoEhErroFinoEBold) {
  FOTO img = preta(9, 9);
  for (const bool bold : {false, true}) {
    for (const double d : {0.5, 0.0, -8.0}) {
      EXPECT_EQ(erroDe([&] { tracaForma(img, deteccao('c', 4, 4, d), bold, vermelho); }),
                "Erro: IMG_::constructor _mat nulo");
    }
  }
}

TEST(TracaForma, DentroEForaDaFormaFicamComoEstavam) {
  std::mt19937 sorteio(7);
  const FOTO img = fotoSorteada(sorteio, 31, 31);
  FOTO tracada = img.clone();
  tracaForma(tracada, deteccao('c', 15, 15, 21), false, vermelho);
  EXPECT_EQ(tracada(15, 15), img(15, 15));
  EXPECT_EQ(tracada(15, 24), img(15, 24));
  EXPECT_EQ(tracada(15, 25), vermelho);
  EXPECT_EQ(tracada(15, 26), img(15, 26));
}

TEST(TracaForma, FormaForaDaImagemNaoMudaNada) {
  FOTO img = preta(20, 20);
  for (const int li : {menorInt, -11, 30, maiorInt}) {
    for (const int ci : {menorInt, 10, maiorInt}) {
      tracaForma(img, deteccao('q', li, ci, 20), false, vermelho);
    }
  }
  EXPECT_TRUE(iguais(img, preta(20, 20)));
}

TEST(TracaFormas, CopiaAEntradaETracaTodasEmOrdem) {
  constexpr unsigned semente = 20512;
  std::mt19937 sorteio(semente);
  for (int caso = 0; caso < 50; ++caso) {
    SCOPED_TRACE(cv::format("semente %u caso %d", semente, caso));
    const FOTO img = fotoSorteada(sorteio, 30, 40);
    const FOTO original = img.clone();
    std::vector<MAXLOCAL> v;
    FOTO esperada = img;
    const bool bold = caso % 2 == 1;
    for (int i = 0; i < caso % 7; ++i) {
      v.push_back(sorteada(sorteio, img));
      esperada = tracaIngenuo(esperada, v.back(), bold, pim::VEC3B(9, 8, 7));
    }
    ASSERT_TRUE(iguais(tracaFormas(img, v, bold, pim::VEC3B(9, 8, 7)), esperada));
    ASSERT_TRUE(iguais(img, original));
  }
}

TEST(TracaFormas, ListaVaziaDaUmaCopiaEmOutraMemoria) {
  const FOTO img = preta(3, 3);
  const FOTO copia = tracaFormas(img, {}, true, vermelho);
  EXPECT_TRUE(iguais(copia, img));
  EXPECT_NE(copia.data, img.data);
}

}  // namespace
