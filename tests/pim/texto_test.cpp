#include "pim/texto.h"

#include <cmath>
#include <limits>

#include "apoio/erros.h"
#include "fabrica.h"

TEST(Minuscula, SoMudaAsLetrasDeAAZ) {
  EXPECT_EQ(pim::minuscula("CoRReLA@[`{09"), "correla@[`{09");
  EXPECT_EQ(pim::minuscula("\xC3\x87\xC3\x83O"), "\xC3\x87\xC3\x83o");
  EXPECT_EQ(pim::minuscula(""), "");
}

TEST(Mostravel, TextoComumFicaComoEstaEOMaisEhCortadoOuMascarado) {
  EXPECT_EQ(pim::semControles("tri\xC3\xA2ngulo"), "tri\xC3\xA2ngulo");
  EXPECT_EQ(pim::comeco(std::string(80, 'x')), std::string(80, 'x'));
  EXPECT_EQ(pim::comeco(std::string(81, 'x')), std::string(80, 'x') + "...");
  EXPECT_EQ(pim::semControles("a\x1B[2J\x07"), "a?[2J?");
}

TEST(Sufixo, DeNomeSemPontoEhVazio) {
  EXPECT_EQ(pim::sufixo("saida"), "");
  EXPECT_EQ(pim::sufixo(""), "");
  EXPECT_EQ(pim::sufixo("saida."), "");
}

TEST(Sufixo, EhOQueSegueOUltimoPontoDoUltimoComponente) {
  EXPECT_EQ(pim::sufixo("saida.ho2"), "ho2");
  EXPECT_EQ(pim::sufixo("a.b.c.PPM"), "PPM");
  EXPECT_EQ(pim::sufixo("dir.d/saida"), "");
  EXPECT_EQ(pim::sufixo("dir.d/saida.ho2"), "ho2");
  EXPECT_EQ(pim::sufixo("../minha foto \xC3\xA7.v2.jpg"), "jpg");
}

TEST(SemSufixo, SoOUltimoSufixoSai) {
  EXPECT_EQ(pim::semSufixo("a.b.c.jpg"), "a.b.c");
  EXPECT_EQ(pim::semSufixo("imagem.jpg") + ".ho2", "imagem.ho2");
}

TEST(SemSufixo, NomeSemPontoFicaComoEstaEPastasTambem) {
  EXPECT_EQ(pim::semSufixo("saida"), "saida");
  EXPECT_EQ(pim::semSufixo("dir.d/saida"), "dir.d/saida");
  EXPECT_EQ(pim::semSufixo("dir.d/a.b.jpg"), "dir.d/a.b");
  EXPECT_EQ(pim::semSufixo("../x"), "../x");
  EXPECT_EQ(pim::semSufixo(""), "");
}

TEST(ConvArg, GuardaONumero) {
  int i = 0;
  double d = 0;
  pim::convArg(i, "-17");
  EXPECT_EQ(i, -17);
  pim::convArg(i, "+2147483647");
  EXPECT_EQ(i, 2147483647);
  pim::convArg(i, "010");
  EXPECT_EQ(i, 10);
  pim::convArg(d, "0.25");
  EXPECT_EQ(d, 0.25);
  pim::convArg(d, "-1e-3");
  EXPECT_EQ(d, -1e-3);
}

TEST(ConvArg, TextoQueNaoEhNumeroInteiroTerminaComEle) {
  int i = 0;
  for (const char* texto : {"", "abc", "12x", "1.5", " 3", "3 ", "1e3", "0x10", "-", "2147483648",
                            "-2147483649", "99999999999999999999"}) {
    EXPECT_EQ(erroDe([&] { pim::convArg(i, texto); }),
              std::string("Erro: Numero invalido ") + texto);
  }
}

TEST(ConvArg, TextoQueNaoEhNumeroRealTerminaComEle) {
  double d = 0;
  for (const char* texto : {"", "x", "1,5", "1.5.2", "1e", " 1", "1e999", "--1"}) {
    EXPECT_EQ(erroDe([&] { pim::convArg(d, texto); }),
              std::string("Erro: Numero invalido ") + texto);
  }
}

TEST(ParaNumero, FalhaNaoMudaAVariavel) {
  int i = 7;
  float f = 7;
  double d = 7;
  EXPECT_FALSE(pim::paraNumero("sete", i));
  EXPECT_FALSE(pim::paraNumero("1e39", f));
  EXPECT_FALSE(pim::paraNumero("-1e400", d));
  EXPECT_FALSE(pim::paraNumero(std::string("5\0", 2), i));
  EXPECT_FALSE(pim::paraNumero(std::string("5\0x", 3), d));
  EXPECT_EQ(i, 7);
  EXPECT_EQ(f, 7);
  EXPECT_EQ(d, 7);
}

TEST(ParaNumero, RealPequenoDemaisViraZeroEInfinitoEscritoVale) {
  float f = 1;
  EXPECT_TRUE(pim::paraNumero("1e-60", f));
  EXPECT_EQ(f, 0);
  double d = 1;
  EXPECT_TRUE(pim::paraNumero("1e-500", d));
  EXPECT_EQ(d, 0);
  EXPECT_TRUE(pim::paraNumero("inf", d));
  EXPECT_TRUE(std::isinf(d));
  EXPECT_TRUE(pim::paraNumero("nan", d));
  EXPECT_TRUE(std::isnan(d));
}

TEST(ParaNumero, FloatEhArredondadoUmaSoVez) {
  float f = 0;
  // Just above the middle of two floats; a passage through double would lose the excess.
  EXPECT_TRUE(pim::paraNumero("1.00000005960464477539062500001", f));
  EXPECT_EQ(f, std::nextafter(1.0F, 2.0F));
}
