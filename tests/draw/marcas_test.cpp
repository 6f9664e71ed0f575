#include <gtest/gtest.h>

#include <cstdint>
#include <random>

#include "apoio/figuras.h"
#include "draw/formas.h"
#include "fotos.h"
#include "pim/letreiro.h"

// The marks at the centre of a detection: its index and its centre point.

namespace {

using std::int64_t;

const pim::VEC3B verde(0, 255, 0);

FOTO centroIngenuo(const FOTO& img, const MAXLOCAL& m, bool bold) {
  FOTO copia = img.clone();
  const bool dentro = m.li >= 0 && m.li < img.rows && m.ci >= 0 && m.ci < img.cols;
  const int64_t r0 = std::max<int64_t>(int64_t{m.li} - (bold ? 1 : 0), 0);
  const int64_t c0 = std::max<int64_t>(int64_t{m.ci} - (bold ? 1 : 0), 0);
  const int64_t r1 = std::min<int64_t>(r0 + (bold ? 3 : 1), img.rows - 1);
  const int64_t c1 = std::min<int64_t>(c0 + (bold ? 3 : 1), img.cols - 1);
  for (int l = 0; l < img.rows; ++l) {
    for (int c = 0; c < img.cols; ++c) {
      const bool bloco = l >= r0 && l < r1 && c >= c0 && c < c1;
      const bool ponto = l == m.li && c == m.ci;
      if (!bold && dentro ? ponto : bloco) copia(l, c) = verde;
    }
  }
  return copia;
}

// The box around all pixels that differ between two images; empty when none does.
cv::Rect caixaMudada(const FOTO& a, const FOTO& b) {
  cv::Rect caixa;
  for (int l = 0; l < a.rows; ++l) {
    for (int c = 0; c < a.cols; ++c) {
      if (a(l, c) != b(l, c)) caixa |= cv::Rect(c, l, 1, 1);
    }
  }
  return caixa;
}

TEST(TracaIndices, CadaIndiceVermelhoSobreBrancoNoCentroDoRegistro) {
  const FOTO img = preta(60, 80);
  const std::vector<MAXLOCAL> v = {deteccao('c', 20, 20, 9), deteccao('x', 40, 60, 0)};
  const FOTO indices = tracaIndices(img, v);
  EXPECT_TRUE(iguais(img, preta(60, 80)));
  for (std::size_t k = 0; k < v.size(); ++k) {
    FOTO metade = preta(60, 80);
    pim::putTxt(metade, v[k].li, v[k].ci, std::to_string(k), vermelho, 1, true,
                pim::VEC3B(255, 255, 255));
    const cv::Rect caixa = caixaMudada(img, metade);
    EXPECT_NEAR(caixa.x + (caixa.width - 1) / 2.0, v[k].ci, 0.5);
    EXPECT_NEAR(caixa.y + (caixa.height - 1) / 2.0, v[k].li, 0.5);
    EXPECT_TRUE(iguais(FOTO(indices(caixa)), FOTO(metade(caixa))));
    EXPECT_NE(cv::countNonZero(FOTO(indices(caixa)).reshape(1)), 0);
  }
  for (const std::string& linha : retrato(indices)) {
    EXPECT_EQ(linha.find_first_not_of(".RW"), std::string::npos) << linha;
  }
  const cv::Rect tudo = caixaMudada(img, indices);
  EXPECT_LT(tudo.br().x, 75);
  EXPECT_GT(tudo.x, 10);
}

TEST(TracaIndices, OTextoEhOLugarNaListaEOPosteriorCobreOAnterior) {
  const std::vector<MAXLOCAL> v(12, deteccao('c', 15, 25, 9));
  FOTO esperada = preta(30, 50);
  for (int k = 0; k < 12; ++k) {
    pim::putTxt(esperada, 15, 25, std::to_string(k), vermelho, 1, true, pim::VEC3B(255, 255, 255));
  }
  EXPECT_TRUE(iguais(tracaIndices(preta(30, 50), v), esperada));
  FOTO soOUltimo = preta(30, 50);
  pim::putTxt(soOUltimo, 15, 25, "11", vermelho, 1, true, pim::VEC3B(255, 255, 255));
  EXPECT_TRUE(iguais(esperada, soOUltimo));  // the widest box hides the others
}

TEST(TracaIndices, CentrosForaDaImagemSaoCortados) {
  std::vector<MAXLOCAL> v;
  for (const int li : {menorInt, -1, 19, 20, maiorInt}) {
    for (const int ci : {menorInt, -1, 19, 20, maiorInt}) v.push_back(deteccao('c', li, ci, 9));
  }
  const FOTO indices = tracaIndices(preta(20, 20), v);
  EXPECT_EQ(indices(10, 10), pim::VEC3B(0, 0, 0));
  EXPECT_NE(indices(19, 19), pim::VEC3B(0, 0, 0));
}

TEST(TracaCentros, IgualAVersaoIngenuaEmTodosOsLugaresDeImagensPequenas) {
  for (int rows = 1; rows <= 6; ++rows) {
    for (int cols = 1; cols <= 6; ++cols) {
      const FOTO img = preta(rows, cols);
      for (int li = -4; li <= rows + 4; ++li) {
        for (int ci = -4; ci <= cols + 4; ++ci) {
          const MAXLOCAL m = deteccao('c', li, ci, 9);
          for (const bool bold : {false, true}) {
            ASSERT_EQ(retrato(tracaCentros(img, {m}, bold)), retrato(centroIngenuo(img, m, bold)))
                << rows << 'x' << cols << " em " << li << ' ' << ci << (bold ? " bold" : "");
          }
        }
      }
    }
  }
}

TEST(TracaCentros, IgualAVersaoIngenuaEmCentrosNosExtremosDosInteiros) {
  const FOTO img = preta(5, 6);
  const int lugares[] = {menorInt, menorInt + 1, menorInt + 2, -1,      0, 3,
                         5,        maiorInt - 2, maiorInt - 1, maiorInt};
  for (const int li : lugares) {
    for (const int ci : lugares) {
      const MAXLOCAL m = deteccao('x', li, ci, 0);
      for (const bool bold : {false, true}) {
        ASSERT_EQ(retrato(tracaCentros(img, {m}, bold)), retrato(centroIngenuo(img, m, bold)))
            << li << ' ' << ci << (bold ? " bold" : "");
      }
    }
  }
}

TEST(TracaCentros, BoldNoMeioEhUmBlocoDe3Por3) {
  EXPECT_EQ(retrato(tracaCentros(preta(6, 7), {deteccao('c', 2, 3, 9)}, true)),
            (RETRATO{".......",  //
                     "..GGG..",  //
                     "..GGG..",  //
                     "..GGG..",  //
                     ".......",  //
                     "......."}));
}

TEST(TracaCentros, BoldNaLinhaZeroPintaAsLinhas0A2) {
  EXPECT_EQ(retrato(tracaCentros(preta(5, 7), {deteccao('c', 0, 3, 9)}, true)),
            (RETRATO{"..GGG..",  //
                     "..GGG..",  //
                     "..GGG..",  //
                     ".......",  //
                     "......."}));
}

TEST(TracaCentros, NaUltimaLinhaOFinoFicaNelaEOBoldSoNaDeCima) {
  const std::vector<MAXLOCAL> v = {deteccao('c', 3, 3, 9)};
  EXPECT_EQ(retrato(tracaCentros(preta(4, 7), v, false)),
            (RETRATO{".......",  //
                     ".......",  //
                     ".......",  //
                     "...G..."}));
  EXPECT_EQ(retrato(tracaCentros(preta(4, 7), v, true)),
            (RETRATO{".......",  //
                     ".......",  //
                     "..GGG..",  //
                     "......."}));
}

TEST(TracaCentros, FinoAcimaDaImagemMarcaALinhaZeroEAbaixoNada) {
  EXPECT_EQ(retrato(tracaCentros(preta(3, 4), {deteccao('c', -9, 2, 9)}, false)),
            (RETRATO{"..G.", "....", "...."}));
  EXPECT_EQ(retrato(tracaCentros(preta(3, 4), {deteccao('c', 1, -1, 9)}, false)),
            (RETRATO{"....", "G...", "...."}));
  for (const int li : {3, 4, maiorInt}) {
    EXPECT_TRUE(iguais(tracaCentros(preta(3, 4), {deteccao('c', li, 2, 9)}, false), preta(3, 4)));
  }
  // On the last column the block that a centre above the image gets is empty.
  EXPECT_TRUE(iguais(tracaCentros(preta(3, 4), {deteccao('c', -9, 3, 9)}, false), preta(3, 4)));
}

TEST(TracaCentros, MarcaTodosOsRegistrosNumaCopia) {
  std::mt19937 sorteio(20513);
  const FOTO img = fotoSorteada(sorteio, 12, 12);
  const FOTO original = img.clone();
  std::vector<MAXLOCAL> v;
  FOTO esperada = img;
  for (int i = 0; i < 6; ++i) {
    v.push_back(deteccao("cqrex"[i % 5], sorteia(sorteio, -3, 14), sorteia(sorteio, -3, 14), 9));
    esperada = centroIngenuo(esperada, v.back(), true);
  }
  EXPECT_TRUE(iguais(tracaCentros(img, v, true), esperada));
  EXPECT_TRUE(iguais(img, original));
}

}  // namespace
