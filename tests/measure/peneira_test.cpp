#include "measure/peneira.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "apoio/erros.h"
#include "apoio/figuras.h"

using namespace measure;

namespace {

TEST(Peneira, GraoDoTamanhoDaMalhaFicaRetido) {
  const CURVA c = curva({{1.9, 1}, {2, 1}, {3, 1}, {4, 1}, {9, 1}});
  const std::vector<PENEIRA> v = peneira(c, {2, 4});
  ASSERT_EQ(v.size(), 3U);
  EXPECT_EQ(v[0].graos, 1U);
  EXPECT_EQ(v[1].graos, 2U);
  EXPECT_EQ(v[2].graos, 2U);
  EXPECT_EQ(v[0].de, 0);
  EXPECT_EQ(v[0].ate, 2);
  EXPECT_EQ(v[1].de, 2);
  EXPECT_EQ(v[1].ate, 4);
  EXPECT_EQ(v[2].de, 4);
  EXPECT_TRUE(std::isinf(v[2].ate));
}

TEST(Peneira, RetidaEPassanteSaoDoPeso) {
  const std::vector<PENEIRA> v = peneira(curva({{1, 1}, {2, 2}, {4, 5}}), {2, 4});
  EXPECT_DOUBLE_EQ(*v[0].retida, 0.125);
  EXPECT_DOUBLE_EQ(*v[1].retida, 0.25);
  EXPECT_DOUBLE_EQ(*v[2].retida, 0.625);
  EXPECT_EQ(*v[0].passante, 0);  // nothing is below the pan
  EXPECT_DOUBLE_EQ(*v[1].passante, 0.125);
  EXPECT_DOUBLE_EQ(*v[2].passante, 0.375);
}

TEST(Peneira, TudoAbaixoOuTudoAcima) {
  const std::vector<PENEIRA> acima = peneira(curva({{5, 1}, {6, 1}}), {1, 2, 3});
  EXPECT_EQ(acima[3].graos, 2U);
  EXPECT_EQ(acima[3].retida, 1);
  EXPECT_EQ(acima[3].passante, 0);
  EXPECT_EQ(acima[1].retida, 0);
  const std::vector<PENEIRA> abaixo = peneira(curva({{5, 1}, {6, 1}}), {7, 8});
  EXPECT_EQ(abaixo[0].retida, 1);
  EXPECT_EQ(abaixo[1].passante, 1);
  EXPECT_EQ(abaixo[2].passante, 1);
}

TEST(Peneira, SemGraosAsFracoesFicamVazias) {
  const std::vector<PENEIRA> v = peneira(curva({}), {2});
  ASSERT_EQ(v.size(), 2U);
  for (const PENEIRA& p : v) {
    EXPECT_EQ(p.graos, 0U);
    EXPECT_FALSE(p.retida.has_value());
    EXPECT_FALSE(p.passante.has_value());
  }
  EXPECT_TRUE(peneira(curva({{1, 1}}), {}).empty());
}

TEST(Peneira, AsFracoesSomamUmEAPassanteCresce) {
  std::mt19937 sorteio(20415);
  for (int caso = 0; caso < 100; ++caso) {
    std::vector<MEDIDA> m;
    for (int i = 0; i <= caso; ++i) {
      m.push_back({sorteia(sorteio, 1, 50) * 0.1, sorteia(sorteio, 1, 99) * 0.01});
    }
    double soma = 0;
    double anterior = 0;
    std::size_t graos = 0;
    for (const PENEIRA& p : peneira(curva(m), {0.5, 1, 2, 3, 4, 4.5})) {
      ASSERT_GE(*p.passante, anterior);
      ASSERT_NEAR(*p.passante, soma, 1e-12);
      ASSERT_LE(*p.passante, 1);
      anterior = *p.passante;
      soma += *p.retida;
      graos += p.graos;
    }
    ASSERT_NEAR(soma, 1, 1e-12);
    ASSERT_EQ(graos, m.size());
  }
}

TEST(Peneira, AberturasForaDeOrdemSaoErro) {
  const std::string inicio = "Erro: Aberturas de peneira devem ser crescentes e maiores que zero: ";
  EXPECT_EQ(erroDe([&] { peneira(curva({}), {2, 1}); }), inicio + "1");
  EXPECT_EQ(erroDe([&] { peneira(curva({}), {2, 2}); }), inicio + "2");
  EXPECT_EQ(erroDe([&] { peneira(curva({}), {0, 2}); }), inicio + "0");
  EXPECT_EQ(erroDe([&] { confereAberturas({1, HUGE_VAL}); }), inicio + "inf");
  EXPECT_EQ(erroDe([&] { confereAberturas({std::nan("")}); }), inicio + "nan");
}

TEST(Peneira, OQuePassaPorUmaPeneiraSobreTodosOsGraosEhExatamenteTudo) {
  std::vector<MEDIDA> m;
  for (int i = 0; i < 1000; ++i) m.push_back({1 + 0.001 * i, 0.1 + 0.37 * (i % 7)});
  EXPECT_EQ(peneira(curva(m), {1.1, 1.25, 1.7, 2}).back().passante, 1.0);
}

}  // namespace
