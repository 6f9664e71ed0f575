#include "motor/termos/escadas.h"

#include <gtest/gtest.h>

#include "motor/termos/escolha.h"

using namespace motor;

namespace {

// A side whose ends stand at these columns.
LADO lado(std::vector<int> coluna) {
  return {1, 0, std::move(coluna)};
}

}  // namespace

TEST(Escadas, RecuoSomaOsPassosParaCima) {
  const ESCADA e{{2, 5, 7}, false};
  EXPECT_EQ(e.largura(), 14);
  EXPECT_EQ(e.recuo(0, 0), 0);
  EXPECT_EQ(e.recuo(0, 1), 7);
  EXPECT_EQ(e.recuo(0, 2), 12);
  EXPECT_EQ(e.recuo(2, 3), 14);
}

TEST(Escadas, DesvioEhDeUmPixelPorPeriodo) {
  const ESCADA reta{{0}, true};
  EXPECT_FALSE(desvio(reta, 0, 0, 0));  // no deviation at all
  EXPECT_FALSE(desvio(reta, 0, 0, 2));
  const auto direita = desvio(reta, 0, 0, 1);
  ASSERT_TRUE(direita);
  EXPECT_EQ(direita->dl, 0);
  EXPECT_EQ(direita->dc, 1);
  EXPECT_EQ(direita->sinal, -1);
  const auto esquerda = desvio(reta, 0, 0, -1);
  ASSERT_TRUE(esquerda);
  EXPECT_EQ(esquerda->dc, 0);
  EXPECT_EQ(esquerda->sinal, 1);
}

TEST(Escadas, LadoRetoCustaDoisTermosELadoSoltoUmPorLinha) {
  const std::vector<ESCADA> reta{{{0}, false}};
  EXPECT_EQ(custoDosLados({lado({4, 4, 4, 4, 4})}, reta), 2);
  EXPECT_EQ(custoDosLados({lado({4, 4, 4, 4, 4})}, {}), 5);
  EXPECT_EQ(custoDosLados({lado({0, 9, 3})}, reta), 3);
  EXPECT_EQ(custoDosLados({lado({4})}, reta), 1);
  EXPECT_EQ(custoDosLados({}, reta), 0);
}

TEST(Escadas, SoPeriodosInteirosFormamUmaCorrida) {
  const std::vector<ESCADA> escada{{{0, 0, 1}, false}};
  // Two whole periods and one end more.
  EXPECT_EQ(custoDosLados({lado({0, 0, 0, 1, 1, 1, 2})}, escada), 3);
  const auto degraus = divideLado(lado({0, 0, 0, 1, 1, 1, 2}), escada);
  EXPECT_EQ(std::count(degraus.begin(), degraus.end(), DEGRAU{}), 1);
}

TEST(EscolheEscadas, LadosRetosPedemAEscadaReta) {
  std::vector<LADO> lados(12, lado(std::vector<int>(30, 5)));
  const auto escadas = escolheEscadas(lados);
  ASSERT_EQ(escadas.size(), 1U);
  EXPECT_EQ(escadas[0].passos, std::vector<int>{0});
}

TEST(EscolheEscadas, LadosCurtosNaoPagamPlano) {
  EXPECT_TRUE(escolheEscadas({lado({5, 5, 5, 5})}).empty());
  EXPECT_TRUE(escolheEscadas({}).empty());
}

TEST(EscolheEscadas, PeriodosLongosSaoAchadosEmQualquerFase) {
  std::vector<LADO> lados;
  for (int inicio = 0; inicio < 12; ++inicio) {
    LADO x = lado({});
    int coluna = 0;
    for (int i = 0; i < 60; ++i) {
      x.coluna.push_back(coluna);
      const int fase = (i + inicio) % 5;
      coluna += fase == 0 ? 7 : fase == 1 ? -3 : fase == 2 ? 9 : fase == 3 ? 2 : 0;
    }
    lados.push_back(x);
  }
  const auto escadas = escolheEscadas(lados);
  ASSERT_EQ(escadas.size(), 1U);
  EXPECT_EQ(escadas[0].altura(), 5);
  EXPECT_EQ(escadas[0].largura(), 15);
  // At each side two terms for the run and at most eight ends outside whole periods.
  EXPECT_LE(custoDosLados(lados, escadas), 12 * 10);
}
