#include "apura/registros.h"

#include <gtest/gtest.h>

#include <cmath>

#include "apoio/erros.h"
#include "apoio/pasta.h"

using apura::impApurados;
using apura::leApurados;

namespace {

TEST(Apurados, LidosDeVoltaSaoOsMesmos) {
  const PASTA pasta;
  std::vector<refine::APURADO> v(3);
  v[1].figura = {'r', 1.0 / 3, -2.0 / 7, 1e-4 + 1e-17, 1e5 / 3, 179.99999999999997};
  v[1].correl = 0.1F;
  v[1].apoio = std::nextafter(1.0, 0.0);
  v[1].contraste = -1e-9;
  v[1].erro = {1e-300, 2.0 / 3, 4.0 / 3, 1e10, 0};
  impApurados(v, "a");
  const std::vector<refine::APURADO> lidos = leApurados("a");
  ASSERT_EQ(lidos.size(), v.size());
  for (std::size_t i = 0; i < v.size(); ++i) {
    EXPECT_EQ(lidos[i].figura.forma, v[i].figura.forma);
    EXPECT_EQ(lidos[i].figura.l, v[i].figura.l);
    EXPECT_EQ(lidos[i].figura.c, v[i].figura.c);
    EXPECT_EQ(lidos[i].figura.d1, v[i].figura.d1);
    EXPECT_EQ(lidos[i].figura.d2, v[i].figura.d2);
    EXPECT_EQ(lidos[i].figura.ang, v[i].figura.ang);
    EXPECT_EQ(lidos[i].correl, v[i].correl);
    EXPECT_EQ(lidos[i].apoio, v[i].apoio);
    EXPECT_EQ(lidos[i].contraste, v[i].contraste);
    EXPECT_EQ(lidos[i].erro, v[i].erro);
  }
  impApurados({}, "vazia");
  EXPECT_TRUE(leApurados("vazia").empty());
}

TEST(Apurados, OutroArquivoEhErro) {
  const PASTA pasta;
  EXPECT_EQ(erroDe([] { leApurados("nenhum"); }), "Erro leitura arquivo nenhum");
  impApurados(std::vector<refine::APURADO>(2), "a");
  const std::string bom = leTudo("a");
  for (const std::string& ruim : {std::string(), std::string("1\n"), bom.substr(0, bom.size() - 5),
                                  bom + "c 1 2\n", bom + '\n', bom + "c x" + bom}) {
    grava("ruim", ruim);
    EXPECT_EQ(erroDe([] { leApurados("ruim"); }), "Erro leitura arquivo ruim") << ruim;
  }
}

}  // namespace
