#include "examples/avaliacao.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "apoio/erros.h"
#include "apoio/pasta.h"

namespace {

const GRAO circulo = {'c', 50, 60, 20, 20, 0};
const GRAO retangulo = {'r', 50, 120, 30, 15, 30};

GRAO deslocado(GRAO g, double linhas, double colunas) {
  g.linha += linhas;
  g.coluna += colunas;
  return g;
}

}  // namespace

TEST(Iou, FormasIdenticasDaoUm) {
  for (const char forma : {'c', 'q', 'r', 'e'}) {
    const GRAO g = {forma, 30.3, 40.7, 24, 14, 35};
    EXPECT_EQ(iou(g, g), 1) << forma;
  }
}

TEST(Iou, FormasSeparadasDaoZero) {
  EXPECT_EQ(iou(circulo, retangulo), 0);
  EXPECT_EQ(iou(circulo, deslocado(circulo, 0, 25)), 0);
}

TEST(Iou, QuadradosDeslocadosMetadeDaoUmTerco) {
  const GRAO q = {'q', 50.5, 50.5, 40, 40, 0};
  EXPECT_DOUBLE_EQ(iou(q, deslocado(q, 0, 20)), 1.0 / 3);
  EXPECT_DOUBLE_EQ(iou(deslocado(q, 20, 0), q), 1.0 / 3);
}

TEST(Iou, CirculoNoQuadradoDeMesmoLadoDaPiSobreQuatro) {
  const GRAO q = {'q', 200.5, 200.5, 300, 300, 0};
  const GRAO c = {'c', 200.5, 200.5, 300, 300, 0};
  EXPECT_NEAR(iou(q, c), std::numbers::pi / 4, 0.003);
}

TEST(Iou, AnguloGiraNoSentidoHorarioDaTela) {
  const GRAO inclinado = {'r', 50, 50, 40, 8, 45};
  const GRAO abaixoDireita = {'c', 60, 60, 4, 4, 0};
  const GRAO acimaDireita = {'c', 40, 60, 4, 4, 0};
  EXPECT_GT(iou(inclinado, abaixoDireita), 0);
  EXPECT_EQ(iou(inclinado, acimaDireita), 0);
}

TEST(Casa, ListaPerfeitaEmOutraOrdemDaTudoUm) {
  const std::vector<GRAO> verdade = {circulo, retangulo};
  const std::vector<GRAO> deteccoes = {retangulo, circulo};
  const std::vector<int> par = casa(verdade, deteccoes);
  EXPECT_EQ(par, (std::vector<int>{1, 0}));
  const AVALIACAO a = avalia(verdade, deteccoes, par);
  EXPECT_EQ(a.precisao(), 1);
  EXPECT_EQ(a.revocacao(), 1);
  EXPECT_EQ(a.f1(), 1);
  EXPECT_EQ(a.letrasCertas(), 1);
  EXPECT_EQ(a.erroDiametro, 0);
}

TEST(Casa, DuasDeteccoesDoMesmoGraoContamUmaVez) {
  const std::vector<GRAO> deteccoes = {deslocado(circulo, 2, 0), circulo};
  EXPECT_EQ(casa({circulo}, deteccoes), (std::vector<int>{-1, 0}));
}

TEST(Casa, UmaDeteccaoSobreDoisGraosFicaComOMelhor) {
  const std::vector<GRAO> verdade = {deslocado(circulo, 0, 3), deslocado(circulo, 0, -1)};
  EXPECT_EQ(casa(verdade, {circulo}), (std::vector<int>{1}));
}

TEST(Casa, AbaixoDoMinimoNaoCasa) {
  const GRAO q = {'q', 50.5, 50.5, 40, 40, 0};
  const std::vector<GRAO> deteccoes = {deslocado(q, 0, 20)};
  EXPECT_EQ(casa({q}, deteccoes), (std::vector<int>{-1}));
  EXPECT_EQ(casa({q}, deteccoes, 1.0 / 3), (std::vector<int>{0}));
}

TEST(Casa, ListasVaziasNaoDividemPorZero) {
  const AVALIACAO nada = avalia({}, {}, casa({}, {}));
  EXPECT_EQ(nada.precisao(), 0);
  EXPECT_EQ(nada.revocacao(), 0);
  EXPECT_EQ(nada.f1(), 0);
  EXPECT_EQ(avalia({circulo}, {}, casa({circulo}, {})).revocacao(), 0);
}

TEST(Avalia, ContaPorFamiliaMedianaDoDiametroELetras) {
  const GRAO longe = {'e', 300, 300, 30, 15, 0};
  const std::vector<GRAO> verdade = {circulo, retangulo, longe};
  GRAO maior = circulo;
  maior.d1 = maior.d2 = 22;
  GRAO outraLetra = retangulo;
  outraLetra.forma = 'e';
  const GRAO falso = {'q', 400, 50, 20, 20, 0};
  const std::vector<GRAO> deteccoes = {maior, outraLetra, falso};
  const AVALIACAO a = avalia(verdade, deteccoes, casa(verdade, deteccoes));
  EXPECT_DOUBLE_EQ(a.precisao(), 2.0 / 3);
  EXPECT_DOUBLE_EQ(a.revocacao(), 2.0 / 3);
  EXPECT_DOUBLE_EQ(a.letrasCertas(), 0.5);
  // Errors of 10% and of 1 - sqrt(pi / 4): two values, so their mean.
  EXPECT_NEAR(a.erroDiametro, (0.1 + 1 - std::sqrt(std::numbers::pi / 4)) / 2, 1e-12);
  EXPECT_EQ(a.familias.at('r').achados, 1);
  EXPECT_EQ(a.familias.at('r').letra, 0);
  EXPECT_EQ(a.familias.at('e').verdade, 1);
  EXPECT_EQ(a.familias.at('e').deteccoes, 1);
  EXPECT_EQ(a.familias.at('e').achados, 0);
  EXPECT_EQ(a.familias.at('q').deteccoes, 1);
}

TEST(Graos, VaoEVoltamPeloArquivo) {
  const PASTA pasta;
  gravaGraos({circulo, {'e', 1.25, 2.5, 30.75, 12, 179.9}}, "a.csv");
  const std::vector<GRAO> lidos = leGraos("a.csv");
  ASSERT_EQ(lidos.size(), 2U);
  EXPECT_EQ(lidos[1].forma, 'e');
  EXPECT_EQ(lidos[1].linha, 1.25);
  EXPECT_EQ(lidos[1].coluna, 2.5);
  EXPECT_EQ(lidos[1].d1, 30.75);
  EXPECT_EQ(lidos[1].d2, 12);
  EXPECT_EQ(lidos[1].ang, 179.9);
}

TEST(Graos, LinhaEstragadaEhRecusada) {
  const PASTA pasta;
  grava("a.csv", "letter,row,col,d1,d2,ang\nc,1,2,x,4,5\n");
  EXPECT_EQ(erroDe([&] { leGraos("a.csv"); }), "Erro: Linha invalida c,1,2,x,4,5 em a.csv");
  grava("b.csv", "c,1,2,3,4,5\n");
  EXPECT_EQ(erroDe([&] { leGraos("b.csv"); }), "Erro: Cabecalho invalido em b.csv");
}
