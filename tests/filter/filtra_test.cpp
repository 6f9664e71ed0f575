#include "filter/filtra.h"

#include <gtest/gtest.h>

#include <array>

#include "apoio/erros.h"
#include "apoio/figuras.h"
#include "apoio/pasta.h"

namespace {

// Circle, rectangle, square, ellipse: minimum and maximum of each.
using OITO = std::array<double, 8>;

OITO le(const std::string& parametros) {
  pim::ISTR s;
  s.texto = parametros;
  const LIMIARES p = leParametros(s);
  return {p.circulo.minCorr,  p.circulo.maxInter,  p.retangulo.minCorr, p.retangulo.maxInter,
          p.quadrado.minCorr, p.quadrado.maxInter, p.elipse.minCorr,    p.elipse.maxInter};
}

TEST(LeParametros, SemParametrosTodasAsFormasUsam01E03) {
  EXPECT_EQ(le(""), (OITO{0.1, 0.3, 0.1, 0.3, 0.1, 0.3, 0.1, 0.3}));
  EXPECT_EQ(le("eof"), le(""));
}

TEST(LeParametros, FormaNomeadaUsaOsSeusEAsOutrasOsDefaults) {
  EXPECT_EQ(le("elipse 0.5 0.2"), (OITO{0.1, 0.3, 0.1, 0.3, 0.1, 0.3, 0.5, 0.2}));
  EXPECT_EQ(le("circulo 0.5 0.2"), (OITO{0.5, 0.2, 0.1, 0.3, 0.1, 0.3, 0.1, 0.3}));
  EXPECT_EQ(le("retangulo 0.5 0.2"), (OITO{0.1, 0.3, 0.5, 0.2, 0.1, 0.3, 0.1, 0.3}));
  EXPECT_EQ(le("quadrado 0.5 0.2"), (OITO{0.1, 0.3, 0.1, 0.3, 0.5, 0.2, 0.1, 0.3}));
}

TEST(LeParametros, DefaultMudaTodasAsFormas) {
  EXPECT_EQ(le("default 0.2 0.4"), (OITO{0.2, 0.4, 0.2, 0.4, 0.2, 0.4, 0.2, 0.4}));
}

TEST(LeParametros, DefaultDepoisDaFormaSobrescreveEAntesNao) {
  EXPECT_EQ(le("circulo 0.2 0.5 default 0.1 0.3"), le(""));
  EXPECT_EQ(le("default 0.1 0.3 circulo 0.2 0.5"), le("circulo 0.2 0.5"));
}

TEST(LeParametros, ValorNegativoContaComoNaoDado) {
  EXPECT_EQ(le("circulo -0.5 0.2 elipse 0.4 -2"), (OITO{0.1, 0.2, 0.1, 0.3, 0.1, 0.3, 0.4, 0.3}));
  EXPECT_EQ(le("default 0.6 0.7 quadrado -1 -1"), le("default 0.6 0.7"));
}

TEST(LeParametros, DefaultNegativoFicaNegativo) {
  EXPECT_EQ(le("default -0.5 1"), (OITO{-0.5, 1, -0.5, 1, -0.5, 1, -0.5, 1}));
}

TEST(LeParametros, PalavrasEmQualquerCaixa) {
  EXPECT_EQ(le("DEFAULT 0.2 0.4 Circulo 0.5 0.6 EOF circulo 0.9 0.9"),
            le("default 0.2 0.4 circulo 0.5 0.6"));
}

TEST(LeParametros, AFormaRepetidaValeAUltima) {
  EXPECT_EQ(le("circulo 0.5 0.6 circulo 0.7 0.8"), le("circulo 0.7 0.8"));
}

TEST(LeParametros, PalavraDesconhecidaEhErroComElaEmMinusculas) {
  EXPECT_EQ(erroDe([&] { le("circulo 0.5 0.6 Triangulo 1 2"); }),
            "Erro: Palavra desconhecida triangulo");
  EXPECT_EQ(erroDe([&] { le("0.5"); }), "Erro: Palavra desconhecida 0.5");
}

TEST(LeParametros, NumeroQueFaltaOuNaoEhNumeroEhErro) {
  EXPECT_EQ(erroDe([&] { le("elipse"); }), "Erro: Falta numero no fim dos parametros");
  EXPECT_EQ(erroDe([&] { le("elipse 0.5"); }), "Erro: Falta numero no fim dos parametros");
  EXPECT_EQ(erroDe([&] { le("elipse 0.5 default"); }), "Erro: Numero invalido default");
}

// Two overlapping circles in a folder with an image; `filtra` writes to `saida`.
void filtra(std::vector<std::string> args) {
  args.insert(args.begin(), {"filtra", "a.pgm", "a.ho1"});
  std::vector<char*> argv;
  for (std::string& a : args) argv.push_back(a.data());
  testing::internal::CaptureStdout();
  Filtra(static_cast<int>(argv.size()), argv.data());
  testing::internal::GetCapturedStdout();
}

TEST(Filtra, GravaEmHo2OsMantidosNaOrdemDaLista) {
  const PASTA pasta;
  grava("a.pgm", pgm(cv::Mat_<unsigned char>(60, 90, 77)));
  grava("a.ho1", listaHo({{0.5F, 'c', 30, 60, 10, 10, 0},
                          {0.9F, 'r', 30, 20, 20, 10, 22.5},
                          {0.4F, 'c', 30, 61, 10, 10, 0}}));
  filtra({"b.ho2"});
  EXPECT_EQ(leTudo("b.ho2"),
            "2\n"
            "//correl f    l    c       d1       d2 deg\n"
            "0.500000 c   30   60 10.00000 10.00000   0\n"
            "0.900000 r   30   20 20.00000 10.00000  22\n");
}

TEST(Filtra, OsLimiaresDeCadaFormaValemParaALetraDela) {
  const PASTA pasta;
  grava("a.pgm", pgm(cv::Mat_<unsigned char>(60, 90, 77)));
  grava("a.ho1", listaHo({{0.5F, 'c', 0, 10, 10, 10, 0},  // all stick out by almost a half
                          {0.5F, 'r', 0, 30, 10, 10, 0},
                          {0.5F, 'q', 0, 50, 10, 10, 0},
                          {0.5F, 'e', 0, 70, 10, 10, 0}}));
  const std::pair<std::string, char> formas[] = {
      {"circulo", 'c'}, {"retangulo", 'r'}, {"quadrado", 'q'}, {"elipse", 'e'}};
  for (const auto& [nome, letra] : formas) {
    filtra({"b.ho2", nome, "0.5", "1"});
    EXPECT_TRUE(leTudo("b.ho2").starts_with("1\n")) << nome;
    EXPECT_NE(leTudo("b.ho2").find(std::string("0.500000 ") + letra), std::string::npos) << nome;
    filtra({"b.ho2", "default", "0.5", "1", nome, "0.6", "1"});
    EXPECT_TRUE(leTudo("b.ho2").starts_with("3\n")) << nome;
    EXPECT_EQ(leTudo("b.ho2").find(std::string("0.500000 ") + letra), std::string::npos) << nome;
  }
}

TEST(Filtra, OTamanhoDaImagemEhColunasPorLinhas) {
  const PASTA pasta;
  grava("a.pgm", pgm(cv::Mat_<unsigned char>(30, 90, 77)));
  grava("a.ho1", listaHo({{0.5F, 'c', 15, 80, 10, 10, 0}, {0.5F, 'c', 80, 15, 10, 10, 0}}));
  filtra({"b.ho2"});
  EXPECT_EQ(leTudo("b.ho2").substr(0, 2), "1\n");
  EXPECT_NE(leTudo("b.ho2").find("c   15   80"), std::string::npos);
}

}  // namespace
