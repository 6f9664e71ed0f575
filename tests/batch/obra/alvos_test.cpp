#include "batch/obra/alvos.h"

#include <gtest/gtest.h>

#include "apoio/pasta.h"
#include "batch/obra/estado.h"

using namespace batch;

namespace fs = std::filesystem;

namespace {

using TEXTOS = std::vector<std::string>;

TEXTOS nomes(const std::vector<fs::path>& arquivos) {
  return nomesDeResultados(arquivos);
}

// The photographs found, relative to the current directory.
TEXTOS achados(const TEXTOS& entradas, bool recursivo = false, const std::string& saida = "saida") {
  TEXTOS v;
  for (const ALVO& a : achaAlvos(entradas, recursivo, saida)) {
    v.push_back(fs::relative(a.arquivo).string());
  }
  return v;
}

TEST(NomesDeResultados, UnicosSaoOsDosArquivosSemSufixo) {
  EXPECT_EQ(nomes({"/f/a.jpg", "/f/b.c.png", "/g/semSufixo", "/f/-x y'z\".tif"}),
            (TEXTOS{"a", "b.c", "semSufixo", "-x y'z\""}));
}

TEST(NomesDeResultados, OSufixoOuAPastaSeparamOsIguais) {
  EXPECT_EQ(nomes({"/f/a.jpg", "/f/a.png", "/f/b.jpg"}), (TEXTOS{"a-jpg", "a-png", "b"}));
  EXPECT_EQ(nomes({"/f/sul/a.jpg", "/f/norte/a.jpg"}), (TEXTOS{"sul-a", "norte-a"}));
  EXPECT_EQ(nomes({"/x/d/a.jpg", "/y/d/a.jpg"}), (TEXTOS{"x-d-a", "y-d-a"}));
  EXPECT_EQ(nomes({"/x/a.jpg", "/x/a.png", "/y/a.png"}), (TEXTOS{"x-a-jpg", "x-a-png", "y-a-png"}));
}

TEST(NomesDeResultados, NaoDependemDaOrdem) {
  EXPECT_EQ(nomes({"/f/sul/a.jpg", "/f/norte/a.jpg", "/b.jpg"}), (TEXTOS{"sul-a", "norte-a", "b"}));
  EXPECT_EQ(nomes({"/b.jpg", "/f/norte/a.jpg", "/f/sul/a.jpg"}), (TEXTOS{"b", "norte-a", "sul-a"}));
}

TEST(NomesDeResultados, ONumeroSeparaOQueRestar) {
  EXPECT_EQ(nomes({"/x/a.jpg", "/y/a.jpg", "/z/x-a.jpg"}), (TEXTOS{"x-a", "y-a", "x-a-2"}));
}

TEST(NomesDeResultados, NaoTomamOLugarDasTabelas) {
  EXPECT_EQ(nomes({"/f/graos.csv.jpg", "/f/resumo.csv.png", "/f/relatorio.html.bmp"}),
            (TEXTOS{"graos.csv-2", "resumo.csv-2", "relatorio.html-2"}));
}

TEST(NomesDeResultados, SaoUmaPalavraVisivelDeUmCaminho) {
  EXPECT_EQ(nomes({"/f/a\nb\t.jpg", "/f/.oculta.jpg", "/f/..x.png"}),
            (TEXTOS{"a_b_", "_oculta", "_.x"}));
  const TEXTOS longos = nomes({"/f/" + std::string(250, 'x'), "/f/y" + std::string(240, 'x')});
  EXPECT_EQ(longos[0], std::string(200, 'x'));
  EXPECT_EQ(longos[1], "y" + std::string(199, 'x'));
  const std::string acentos = nomes({"/f/x" + std::string(100, 'a') + [] {
    std::string s;
    for (int i = 0; i < 70; ++i) s += "\xC3\xA7";
    return s;
  }()})[0];
  EXPECT_EQ(acentos.size(), 199U);  // no half character at its end
}

struct Alvos : testing::Test {
  PASTA pasta;

  void SetUp() override {
    fs::create_directories("f/sub/fundo");
    for (const char* nome : {"f/b.PGM", "f/a.jpg", "f/nota.txt", "f/.oculta.png", "f/sub/c.Tiff",
                             "f/sub/fundo/d.bmp", "f/x.jpeg", "f/y.pnm"}) {
      grava(nome, "x");
    }
  }
};

TEST_F(Alvos, UmaPastaDaSuasFotosPorNome) {
  EXPECT_EQ(achados({"f"}), (TEXTOS{"f/a.jpg", "f/b.PGM", "f/x.jpeg", "f/y.pnm"}));
}

TEST_F(Alvos, RecursivoEntraNasPastas) {
  EXPECT_EQ(achados({"f"}, true), (TEXTOS{"f/a.jpg", "f/b.PGM", "f/x.jpeg", "f/y.pnm",
                                          "f/sub/c.Tiff", "f/sub/fundo/d.bmp"}));
}

TEST_F(Alvos, ArquivosDadosPorNomeValemComQualquerSufixoENaOrdem) {
  EXPECT_EQ(achados({"f/x.jpeg", "f/nota.txt", "nenhuma.jpg", "f/a.jpg"}),
            (TEXTOS{"f/x.jpeg", "f/nota.txt", "nenhuma.jpg", "f/a.jpg"}));
}

TEST_F(Alvos, CadaFotoEhTomadaUmaVez) {
  fs::create_directory_symlink("f", "outro");
  EXPECT_EQ(achados({"f/a.jpg", "f", "./f/../f/a.jpg", "outro/b.PGM"}).size(), 4U);
}

TEST_F(Alvos, LacosDeLigacoesTerminam) {
  fs::create_directory_symlink("..", "f/sub/volta");
  fs::create_directory_symlink(".", "f/eu");
  EXPECT_EQ(achados({"f"}, true).size(), 6U);
}

TEST_F(Alvos, ASaidaEOutrosResultadosNaoSaoFotos) {
  fs::create_directories("f/saida/a");
  grava("f/saida/a/a.png", "x");
  fs::create_directories("f/antiga/a");
  grava("f/antiga/a/a.png", "x");
  EXPECT_EQ(achados({"f"}, true, "f/saida").size(), 7U);
  impEstado(ESTADO{}, "f/antiga/a");
  EXPECT_EQ(achados({"f"}, true, "f/saida").size(), 6U);
}

TEST_F(Alvos, APastaDasFotosPodeSerASaida) {
  EXPECT_EQ(achados({"f"}, false, "f").size(), 4U);
}

TEST_F(Alvos, PastaVaziaOuNomeVazio) {
  fs::create_directory("vazia");
  EXPECT_TRUE(achaAlvos({"vazia"}, true, "saida").empty());
  const auto alvos = achaAlvos({""}, true, "saida");
  ASSERT_EQ(alvos.size(), 1U);
  EXPECT_EQ(alvos[0].nome, "_");
}

}  // namespace
