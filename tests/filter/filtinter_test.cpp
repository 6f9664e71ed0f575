#include "filter/filtinter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "apoio/erros.h"
#include "apoio/figuras.h"
#include "deteccao.h"

namespace {

using LISTA = std::vector<MAXLOCAL>;

constexpr double menosQue1 = 0.9999999999999999;
constexpr LIMIAR folgado = {0, 1};

// The positions in `entrada` of the detections that the filter keeps. Each must differ.
std::vector<int> mantidos(LISTA entrada, cv::Size tamanho, const LIMIARES& t) {
  LISTA saida;
  for (std::size_t k = 0; k < entrada.size(); ++k) entrada[k].ang = 360.0 * static_cast<double>(k);
  filtInter(entrada, saida, tamanho, t);
  std::vector<int> posicoes;
  for (const MAXLOCAL& m : saida) posicoes.push_back(static_cast<int>(m.ang / 360.0));
  return posicoes;
}

LIMIARES todos(double minCorr, double maxInter) {
  const LIMIAR t = {minCorr, maxInter};
  return {t, t, t, t};
}

using POSICOES = std::vector<int>;

TEST(FiltInter, OitoLimiaresUmPorUm) {
  // Two squares of 5 by 5 pixels that share one column of 5: a fifth of each.
  LISTA v = {deteccao('q', 50, 50, 4), deteccao('q', 50, 54, 4), deteccao('e', 9, 9, 4, 0.2F),
             deteccao('r', 9, 50, 4, 0.2F), deteccao('c', 50, 9, 5, 0.2F)};
  const auto quantos = [&](double c, double r, double q, double qInter, double e) {
    LISTA saida;
    filtInter(v, saida, cv::Size(100, 100), c, 1, r, 1, q, qInter, e, 1);
    std::string letras;
    for (const MAXLOCAL& m : saida) letras += m.forma;
    return letras;
  };
  EXPECT_EQ(quantos(0, 0, 0, 1, 0), "qqerc");
  EXPECT_EQ(quantos(0.3, 0, 0, 1, 0), "qqer");
  EXPECT_EQ(quantos(0, 0.3, 0, 1, 0), "qqec");
  EXPECT_EQ(quantos(0, 0, 0.6, 1, 0), "erc");
  EXPECT_EQ(quantos(0, 0, 0, 0.1, 0), "qerc");
  EXPECT_EQ(quantos(0, 0, 0, 1, 0.3), "qqrc");
}

const cv::Size cem(100, 100);

TEST(FiltInter, EntradaVaziaDeixaASaidaVazia) {
  EXPECT_EQ(mantidos({}, cem, todos(0, 1)), POSICOES());
  EXPECT_EQ(mantidos({}, cv::Size(1, 1), todos(0, 1)), POSICOES());
}

TEST(FiltInter, LetraDesconhecidaFicaSempreENaoOcupaNada) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const LISTA v = {deteccao('x', 50, 50, 20, -9), deteccao('z', -900, 50, 20, nan),
                   deteccao('c', 50, 50, 20), deteccao('x', 50, 50, 20)};
  EXPECT_EQ(mantidos(v, cem, todos(0.5, 0)), (POSICOES{0, 1, 2, 3}));
}

TEST(FiltInter, SegundoCirculoIgualSoPassaComMaximo1) {
  const LISTA v = {deteccao('c', 50, 50, 20), deteccao('c', 50, 50, 20)};
  EXPECT_EQ(mantidos(v, cem, todos(0, menosQue1)), (POSICOES{0}));
  EXPECT_EQ(mantidos(v, cem, todos(0, 1)), (POSICOES{0, 1}));
}

TEST(FiltInter, AdmitidaSaiQuandoOVizinhoPassaDoMaximoDele) {
  const LISTA v = {deteccao('e', 50, 50, 21), deteccao('q', 50, 50, 21)};
  LIMIARES t = todos(0, 1);
  EXPECT_EQ(mantidos(v, cem, t), (POSICOES{0, 1}));
  t.elipse.maxInter = menosQue1;
  EXPECT_EQ(mantidos(v, cem, t), (POSICOES{0}));
}

TEST(FiltInter, CorrelacaoIgualAoMinimoPassa) {
  const float acima = std::nextafter(0.5F, 1.0F);
  const float abaixo = std::nextafter(0.5F, 0.0F);
  for (const char forma : {'c', 'q', 'r', 'e'}) {
    const LISTA v = {deteccao(forma, 20, 20, 9, 0.5F), deteccao(forma, 50, 50, 9, abaixo),
                     deteccao(forma, 80, 80, 9, acima)};
    EXPECT_EQ(mantidos(v, cem, todos(0.5, 0)), (POSICOES{0, 2})) << forma;
  }
  // The float is compared as a double: 0.1F is a little more than 0.1, 0.3F than 0.3; 0.7F is less.
  EXPECT_EQ(mantidos({deteccao('c', 50, 50, 9, 0.1F)}, cem, todos(0.1, 0)), (POSICOES{0}));
  EXPECT_EQ(mantidos({deteccao('c', 50, 50, 9, 0.7F)}, cem, todos(0.7, 0)), POSICOES());
}

TEST(FiltInter, CorrelacaoQueNaoEhNumeroPassa) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(mantidos({deteccao('c', 50, 50, 9, nan)}, cem, todos(0.9, 0)), (POSICOES{0}));
}

TEST(FiltInter, InterseccaoIgualAoMaximoPassaDosDoisLados) {
  // Two squares of 5 by 5 pixels that share one column of 5: a fifth of each.
  const LISTA v = {deteccao('q', 50, 50, 4), deteccao('q', 50, 54, 4)};
  EXPECT_EQ(mantidos(v, cem, todos(0, 0.2)), (POSICOES{0, 1}));
  EXPECT_EQ(mantidos(v, cem, todos(0, std::nextafter(0.2, 0))), (POSICOES{0}));
  const LISTA misto = {deteccao('q', 50, 50, 4), deteccao('r', 50, 54, 4)};
  LIMIARES t = todos(0, 1);
  t.quadrado.maxInter = 0.2;
  EXPECT_EQ(mantidos(misto, cem, t), (POSICOES{0, 1}));
  t.quadrado.maxInter = std::nextafter(0.2, 0);
  EXPECT_EQ(mantidos(misto, cem, t), (POSICOES{0}));
}

TEST(FiltInter, CadaLetraUsaOsSeusLimiares) {
  const LISTA v = {deteccao('c', 20, 20, 9, 0.1F), deteccao('r', 20, 70, 9, 0.2F),
                   deteccao('q', 70, 20, 9, 0.3F), deteccao('e', 70, 70, 9, 0.4F)};
  for (int excluida = 0; excluida < 4; ++excluida) {
    LIMIARES t = todos(0, 0);
    LIMIAR* ordem[] = {&t.circulo, &t.retangulo, &t.quadrado, &t.elipse};
    ordem[excluida]->minCorr = 0.9;
    POSICOES esperadas = {0, 1, 2, 3};
    esperadas.erase(esperadas.begin() + excluida);
    EXPECT_EQ(mantidos(v, cem, t), esperadas);
    *ordem[excluida] = {0, -1};  // an overlap of 0 is above it
    EXPECT_EQ(mantidos(v, cem, t), esperadas);
  }
}

TEST(FiltInter, OQueFicaForaDaImagemContaComoOcupado) {
  const MAXLOCAL meia = deteccao('c', 0, 50, 21);  // 148 of its 317 pixels lie above row 0
  EXPECT_EQ(mantidos({meia}, cem, todos(0, 148.0 / 317.0)), (POSICOES{0}));
  EXPECT_EQ(mantidos({meia}, cem, todos(0, 147.9 / 317.0)), POSICOES());
  for (const int longe :
       {-1000, 1000, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    EXPECT_EQ(mantidos({deteccao('c', 50, longe, 21)}, cem, todos(0, menosQue1)), POSICOES());
    EXPECT_EQ(mantidos({deteccao('c', longe, 50, 21)}, cem, todos(0, 1)), (POSICOES{0}));
  }
}

TEST(FiltInter, SemPixelsPassaENaoOcupa) {
  const LISTA v = {deteccao('c', 50, 50, 0), deteccao('q', 50, 50, -8), deteccao('c', 50, 50, 9)};
  EXPECT_EQ(mantidos(v, cem, todos(0, -1)), (POSICOES{0, 1}));
  EXPECT_EQ(mantidos(v, cem, todos(0, 0)), (POSICOES{0, 1, 2}));
}

TEST(FiltInter, AcrescentaASaidaSemMudarAEntrada) {
  LISTA entrada = {deteccao('c', 50, 50, 9), deteccao('c', 50, 51, 9)};
  LISTA saida;
  filtInter(entrada, saida, cem, 0, 0.3, 0, 0.3, 0, 0.3, 0, 0.3);
  ASSERT_EQ(saida.size(), 1U);
  EXPECT_EQ(saida[0].ci, 50);
  ASSERT_EQ(entrada.size(), 2U);
  EXPECT_EQ(entrada[1].ci, 51);
}

// A square around a circle, which throws it out, and then an ellipse beside the circle.
LISTA comRetirada(int li, int ci) {
  return {deteccao('c', li, ci, 5), deteccao('q', li, ci, 20), deteccao('e', li, ci + 7, 5)};
}

TEST(FiltInter, RetiradaLongeDoCantoContinuaBloqueando) {
  const LIMIARES t = {{0, 0.1}, folgado, folgado, {0, 0.3}};
  EXPECT_EQ(mantidos(comRetirada(50, 50), cem, t), (POSICOES{0}));
}

TEST(FiltInter, RetiradaNoCantoLiberaOsSeusPixels) {
  const LIMIARES t = {{0, 0.1}, folgado, folgado, {0, 0.3}};
  EXPECT_EQ(mantidos(comRetirada(12, 12), cem, t), (POSICOES{0, 2}));
}

TEST(FiltInter, RetiradaLiberaSoORetanguloDoTamanhoDaMascara) {
  // The square covers rows 4 to 8 and columns 5 to 9; its mask is 7 by 7, so that rows to 6 and
  // columns to 7 are released. One-pixel ellipses then probe every cell.
  LISTA v = {deteccao('c', 8, 9, 1), deteccao('q', 6, 7, 4)};
  for (int l = 0; l < 12; ++l) {
    for (int c = 0; c < 12; ++c) v.push_back(deteccao('e', l, c, 0));
  }
  const LIMIARES t = {{0, 0.5}, folgado, folgado, {0, 0.5}};
  std::vector<std::string> livres(12, std::string(12, '#'));
  for (const int k : mantidos(v, cv::Size(12, 12), t)) {
    if (k >= 2)
      livres[static_cast<std::size_t>(k - 2) / 12][static_cast<std::size_t>(k - 2) % 12] = '.';
  }
  EXPECT_EQ(livres, (std::vector<std::string>{"............",  //
                                              "............",  //
                                              "............",  //
                                              "............",  //
                                              "........##..",  //
                                              "........##..",  //
                                              "........##..",  //
                                              ".....#####..",  //
                                              ".....#####..",  //
                                              "............",  //
                                              "............",  //
                                              "............"}));
}

TEST(FiltInter, RetiradaComMascaraMaiorQueAImagemViolaAAfirmacao) {
  const LISTA v = {deteccao('c', 2, 2, 1), deteccao('q', 2, 2, 20)};
  const LIMIARES t = {{0, 0.5}, folgado, folgado, folgado};
  for (const cv::Size tamanho : {cv::Size(5, 5), cv::Size(5, 60), cv::Size(60, 5)}) {
    EXPECT_EQ(assercaoSemLinha([&] { mantidos(v, tamanho, t); }), foraDaGrade);
  }
  EXPECT_EQ(mantidos(v, cv::Size(60, 60), t), (POSICOES{0}));
}

TEST(FiltInter, MascaraDaLarguraDaImagemJaViolaPelaColunaAMais) {
  // A 7 by 7 mask whose square reaches column 7.
  const LISTA v = {deteccao('c', 4, 5, 1), deteccao('q', 4, 5, 4)};
  const LIMIARES t = {{0, 0.5}, folgado, folgado, folgado};
  EXPECT_EQ(assercaoSemLinha([&] { mantidos(v, cv::Size(7, 7), t); }), foraDaGrade);
  EXPECT_EQ(mantidos(v, cv::Size(8, 7), t), (POSICOES{0}));
}

}  // namespace
