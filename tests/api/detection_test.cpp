#include "vorplex/detection.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>

#include "api/fotos.h"
#include "apoio/pasta.h"

TEST(Detection, GravadaELidaSoPerdeDecimais) {
  const PASTA pasta;
  vorplex::write_ho({{0.5F, 'r', 10.4, 20.6, 12.5, 7.25, 33.7}}, "a.ho2");
  const auto v = vorplex::read_ho("a.ho2");
  ASSERT_EQ(v.size(), 1U);
  EXPECT_EQ(v[0].correlation, 0.5F);
  EXPECT_EQ(v[0].shape, 'r');
  EXPECT_EQ(v[0].row, 10);
  EXPECT_EQ(v[0].column, 21);
  EXPECT_EQ(v[0].d1, 12.5);
  EXPECT_EQ(v[0].d2, 7.25);
  EXPECT_EQ(v[0].angle, 34);
}

TEST(Detection, ErrosDeArquivosSaoLancados) {
  const PASTA pasta;
  EXPECT_EQ(erroDe([] { vorplex::read_ho("nenhum.ho1"); }), "Erro abertura arquivo nenhum.ho1");
  grava("ruim.ho1", "2 0.5 c 1 2 3 3 0");
  EXPECT_NE(erroDe([] { vorplex::read_ho("ruim.ho1"); }), "nada");
  grava("demais.ho1", "-3");
  EXPECT_NE(erroDe([] { vorplex::read_ho("demais.ho1"); }), "nada");
  EXPECT_NE(erroDe([] { vorplex::write_ho({}, "nao/existe.ho2"); }), "nada");
}

TEST(Detection, OQueNaoSeLeriaNaoEGravado) {
  const PASTA pasta;
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  for (const char letra : {'\0', ' ', 'x'}) {
    EXPECT_NE(erroDe([&] { vorplex::write_ho({{0.5F, letra, 1, 1, 5, 5, 0}}, "x.ho2"); }), "nada");
  }
  EXPECT_NE(erroDe([&] { vorplex::write_ho({{0.5F, 'c', nan, 1, 5, 5, 0}}, "x.ho2"); }), "nada");
  EXPECT_FALSE(std::filesystem::exists("x.ho2"));
}
