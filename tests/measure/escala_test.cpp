#include "measure/escala.h"

#include <gtest/gtest.h>

#include "apoio/erros.h"

using namespace measure;

namespace {

struct CASO {
  const char* texto;
  double lado;
  UNIDADE unidade;
};

TEST(Escala, NumeroEUnidadeComOuSemBranco) {
  const CASO casos[] = {{"0.05mm", 0.05, UNIDADE::mm},      {"12.5 um", 12.5, UNIDADE::um},
                        {"12.5\u00B5m", 12.5, UNIDADE::um}, {"12.5 \u03BCm", 12.5, UNIDADE::um},
                        {" 3cm ", 3, UNIDADE::cm},          {"2\tm", 2, UNIDADE::m},
                        {".5in", 0.5, UNIDADE::in},         {"1e-3mm", 0.001, UNIDADE::mm},
                        {"1e-9m", 1e-9, UNIDADE::m},        {"1e9um", 1e9, UNIDADE::um},
                        {"0,05mm", 0.05, UNIDADE::mm},      {"12,5 um", 12.5, UNIDADE::um},
                        {"20px/mm", 0.05, UNIDADE::mm},     {"2,5 px/ cm", 0.4, UNIDADE::cm}};
  for (const CASO& caso : casos) {
    ESCALA e;
    EXPECT_EQ(paraEscala(caso.texto, e), "") << caso.texto;
    EXPECT_EQ(e.lado, caso.lado) << caso.texto;
    EXPECT_EQ(e.unidade, caso.unidade) << caso.texto;
    EXPECT_TRUE(calibrada(e));
  }
}

TEST(Escala, TextoRecusadoDizPorqueENaoMudaNada) {
  const char* casos[][2] = {
      {"1,2,3mm", "unidade desconhecida (use um, mm, cm, m, in)"},
      {"0,mm", "o tamanho do pixel deve ser maior que zero"},
      {",5mm", "falta o tamanho do pixel, como em 0.05mm"},
      {"0px/mm", "o tamanho do pixel deve ser finito"},
      {"-2px/mm", "o tamanho do pixel deve ser maior que zero"},
      {"20px/", "falta a unidade (um, mm, cm, m, in)"},
      {"20px/px", "unidade desconhecida (use um, mm, cm, m, in)"},
      {"0mm", "o tamanho do pixel deve ser maior que zero"},
      {"-0.1mm", "o tamanho do pixel deve ser maior que zero"},
      {"nan mm", "o tamanho do pixel deve ser finito"},
      {"inf mm", "o tamanho do pixel deve ser finito"},
      {"1e400mm", "o tamanho do pixel deve ir de 1e-9 a 1e9"},
      {"1e-400mm", "o tamanho do pixel deve ir de 1e-9 a 1e9"},
      {"9e-10mm", "o tamanho do pixel deve ir de 1e-9 a 1e9"},
      {"1.1e9mm", "o tamanho do pixel deve ir de 1e-9 a 1e9"},
      {"5", "falta a unidade (um, mm, cm, m, in)"},
      {"5 km", "unidade desconhecida (use um, mm, cm, m, in)"},
      {"5 px", "unidade desconhecida (use um, mm, cm, m, in)"},
      {"5 MM", "unidade desconhecida (use um, mm, cm, m, in)"},
      {"5 mm2", "unidade desconhecida (use um, mm, cm, m, in)"},
      {"0x10mm", "o tamanho do pixel deve ser maior que zero"},
      {"mm", "falta o tamanho do pixel, como em 0.05mm"},
      {"  ", "falta o tamanho do pixel, como em 0.05mm"},
      {"", "falta o tamanho do pixel, como em 0.05mm"},
  };
  for (const auto& caso : casos) {
    ESCALA e{7, UNIDADE::cm};
    EXPECT_EQ(paraEscala(caso[0], e), caso[1]) << caso[0];
    EXPECT_EQ(e.lado, 7);
    EXPECT_EQ(e.unidade, UNIDADE::cm);
  }
}

TEST(Escala, LeEscalaTerminaComTextoEMotivo) {
  EXPECT_EQ(leEscala("0.05mm").lado, 0.05);
  EXPECT_EQ(erroDe([&] { leEscala("12 km"); }),
            "Erro: Escala invalida 12 km: unidade desconhecida (use um, mm, cm, m, in)");
}

TEST(Escala, SemEscalaTudoFicaEmPixels) {
  const ESCALA e;
  EXPECT_FALSE(calibrada(e));
  EXPECT_STREQ(nomeDaUnidade(e.unidade), "px");
  EXPECT_EQ(comprimento(12.5, e), 12.5);
  EXPECT_EQ(area(12.5, e), 12.5);
}

TEST(Escala, ComprimentosPeloLadoEAreasPeloQuadrado) {
  const ESCALA e{0.5, UNIDADE::mm};
  EXPECT_EQ(comprimento(10, e), 5);
  EXPECT_EQ(area(10, e), 2.5);
}

TEST(Escala, NomesEMilimetrosDasUnidades) {
  const CASO casos[] = {{"px", 1, UNIDADE::px},  {"um", 0.001, UNIDADE::um},
                        {"mm", 1, UNIDADE::mm},  {"cm", 10, UNIDADE::cm},
                        {"m", 1000, UNIDADE::m}, {"in", 25.4, UNIDADE::in}};
  for (const CASO& caso : casos) {
    EXPECT_STREQ(nomeDaUnidade(caso.unidade), caso.texto);
    EXPECT_EQ(milimetros(caso.unidade), caso.lado);
  }
}

}  // namespace
