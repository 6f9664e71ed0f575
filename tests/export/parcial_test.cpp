#include "export/parcial.h"

#include <gtest/gtest.h>

#include "apoio/erros.h"
#include "apoio/pasta.h"

using namespace exporta;

namespace {

TEST(Parcial, ONomeSoApareceQuandoEstaCompleto) {
  const PASTA pasta;
  grava("a.csv", "antes");
  PARCIAL p = abreParcial("a.csv");
  p.pendente = std::string(200000, 'x');
  adianta(p);
  EXPECT_TRUE(p.pendente.empty());
  p.pendente = "fim";
  adianta(p);
  EXPECT_EQ(p.pendente, "fim");
  EXPECT_EQ(leTudo("a.csv"), "antes");
  EXPECT_TRUE(existe("a.csv.parcial"));
  conclui(std::move(p));
  EXPECT_EQ(leTudo("a.csv"), std::string(200000, 'x') + "fim");
  EXPECT_FALSE(existe("a.csv.parcial"));
}

TEST(Parcial, RestoDeUmaCorridaInterrompidaNaoAtrapalha) {
  const PASTA pasta;
  grava("a.csv.parcial", std::string(5000, 'z'));
  PARCIAL p = abreParcial("a.csv");
  p.pendente = "novo";
  conclui(std::move(p));
  EXPECT_EQ(leTudo("a.csv"), "novo");
}

TEST(Parcial, InterrompidoSomeEOAnteriorFica) {
  const PASTA pasta;
  grava("a.csv", "antes");
  const auto escreve = [] {
    PARCIAL p = abreParcial("a.csv");
    p.pendente = std::string(200000, 'x');
    adianta(p);
    pim::erro("Erro: x");
  };
  EXPECT_EQ(erroDe(escreve), "Erro: x");
  EXPECT_FALSE(existe("a.csv.parcial"));
  EXPECT_EQ(leTudo("a.csv"), "antes");
}

TEST(Parcial, DiscoCheioEhErroEOAnteriorFica) {
  const PASTA pasta;
  grava("a.csv", "antes");
  std::filesystem::create_symlink("/dev/full", "a.csv.parcial");
  const auto escreve = [](std::size_t n) {
    PARCIAL p = abreParcial("a.csv");
    p.pendente = std::string(n, 'x');
    adianta(p);
    conclui(std::move(p));
  };
  for (const std::size_t n : {std::size_t{1}, std::size_t{200000}}) {
    EXPECT_EQ(erroDe([&] { escreve(n); }), "Erro gravacao arquivo a.csv.parcial");
  }
  EXPECT_EQ(leTudo("a.csv"), "antes");
}

TEST(Parcial, DispositivosSaoEscritosDiretoELinksContinuamLinks) {
  const PASTA pasta;
  std::filesystem::create_symlink("/dev/null", "nada.csv");
  conclui(abreParcial("nada.csv"));
  EXPECT_TRUE(std::filesystem::is_character_file("nada.csv"));
  std::filesystem::create_directory("longe");
  std::filesystem::create_symlink("longe/b.csv", "a.csv");
  std::filesystem::create_symlink("c.csv", "longe/b.csv");
  PARCIAL p = abreParcial("a.csv");
  p.pendente = "texto";
  conclui(std::move(p));
  EXPECT_TRUE(std::filesystem::is_symlink("a.csv") && std::filesystem::is_symlink("longe/b.csv"));
  EXPECT_EQ(leTudo("longe/c.csv"), "texto");
}

TEST(GravaAparte, OQueHaviaFicaAteOFim) {
  const PASTA pasta;
  grava("a.png", "antes");
  std::string nome;
  gravaAparte("a.png", [&](const std::string& aparte) {
    nome = aparte;
    grava(aparte, "depois");
    EXPECT_EQ(leTudo("a.png"), "antes");
  });
  EXPECT_EQ(leTudo("a.png"), "depois");
  EXPECT_TRUE(nome.ends_with(".png"));
  EXPECT_FALSE(existe(nome));
  std::filesystem::create_directory("d.png");
  EXPECT_EQ(
      erroDe([&] { gravaAparte("d.png", [&](const std::string& n) { grava(nome = n, "x"); }); }),
      "Erro gravacao arquivo d.png");
  EXPECT_FALSE(existe(nome));
}

TEST(Parcial, PastaQueNaoExisteOuEstaNoLugarEhErro) {
  const PASTA pasta;
  EXPECT_EQ(erroDe([&] { abreParcial("sem/a.csv"); }), "Erro abertura arquivo sem/a.csv.parcial");
  std::filesystem::create_directory("d.csv");
  EXPECT_EQ(erroDe([&] { conclui(abreParcial("d.csv")); }), "Erro gravacao arquivo d.csv");
  EXPECT_FALSE(existe("d.csv.parcial"));
}

}  // namespace
