#include "treino/tabela.h"

#include <gtest/gtest.h>

#include "apoio/erros.h"
#include "apoio/pasta.h"
#include "treino/nomes.h"

TEST(Tabela, VoltaComoFoiGravada) {
  const PASTA pasta;
  treino::TABELA t;
  t.colunas = {"a", "nota do meio"};
  t.valores = {1, -0.0, 0.1, 1e-300, 5, 6};
  grava(t, "t");
  const treino::TABELA lida = treino::leTabela("t", 2);
  EXPECT_EQ(lida.colunas, t.colunas);
  EXPECT_EQ(lida.valores, t.valores);
  EXPECT_EQ(lida.linhas(), 3U);
  EXPECT_EQ(lida.linha(1)[1], 1e-300);
}

TEST(Tabela, SemLinhasEhTabela) {
  const PASTA pasta;
  treino::TABELA t;
  t.colunas = {"a"};
  grava(t, "t");
  EXPECT_EQ(treino::leTabela("t", 1).linhas(), 0U);
}

TEST(Tabela, OQueNaoETabelaEhRecusado) {
  const PASTA pasta;
  grava("curta", "a,b\n1234567");
  EXPECT_EQ(erroDe([] { treino::leTabela("curta", 2); }), "Erro: Tabela invalida curta");
  EXPECT_EQ(erroDe([] { treino::leTabela("curta", 3); }), "Erro: Tabela invalida curta");
  EXPECT_EQ(erroDe([] { treino::leTabela("nao-ha", 1); }), "Erro: Impossivel ler nao-ha");
  EXPECT_NE(erroDe([] { grava(treino::TABELA{}, "nao-ha/t"); }), "");
}

TEST(Nomes, UmPorTraco) {
  for (const std::string_view nome : treino::nomesDosTracos) EXPECT_FALSE(nome.empty());
  for (const std::string_view nome : treino::nomesDosEsbocados) EXPECT_FALSE(nome.empty());
  for (const std::string_view nome : treino::nomesDaCompanhia) EXPECT_FALSE(nome.empty());
  EXPECT_EQ(treino::nomesDosTracos[refine::logPerimetro], "logPerimetro");
  EXPECT_EQ(treino::nomesDosTracos[refine::nitidez], "nitidez");
  EXPECT_EQ(treino::nomesDosEsbocados[refine::eLogCorrelacao], "eLogCorrelacao");
}
