#include "batch/obra/obra.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "apoio/pasta.h"
#include "batch/obra/estado.h"

using namespace exporta;
using namespace batch;

namespace fs = std::filesystem;

namespace {

struct Obra : testing::Test {
  PASTA pasta;
  OBRA obra;

  void abre() { ASSERT_EQ(abreObra(obra, "s", IDIOMA::pt), ""); }

  // Results of `nome` in their working folder, told apart by `conteudo`.
  void faz(const std::string& nome, const std::string& conteudo) const {
    fs::create_directory(emObra(obra, nome));
    for (const std::string& arquivo : arquivosDaFoto(nome)) {
      grava((emObra(obra, nome) / arquivo).string(), conteudo);
    }
    impEstado(ESTADO{}, emObra(obra, nome));
  }
};

TEST_F(Obra, OFeitoTomaOSeuNomeEAObraDesaparece) {
  abre();
  faz("a", "1");
  EXPECT_FALSE(existe("s/a"));
  EXPECT_TRUE(publica(obra, "a"));
  EXPECT_EQ(leTudo("s/a/a.ho2"), "1");
  fechaObra(obra);
  EXPECT_EQ(std::distance(fs::directory_iterator("s"), fs::directory_iterator()), 1);
}

TEST_F(Obra, SemNadaFeitoNaoFicaNemASaida) {
  abre();
  fechaObra(obra);
  EXPECT_FALSE(existe("s"));
  fs::create_directory("s");  // the user's own stays
  abre();
  fechaObra(obra);
  EXPECT_TRUE(existe("s"));
}

TEST_F(Obra, OQueOUsuarioPosNaPastaFica) {
  abre();
  faz("a", "1");
  ASSERT_TRUE(publica(obra, "a"));
  grava("s/a/notas.txt", "minhas");
  fs::create_directory("s/a/amostras");
  grava("s/a/amostras/x", "y");
  grava("s/a/mensagens.txt", "velhas");
  faz("a", "2");
  ASSERT_TRUE(publica(obra, "a"));
  EXPECT_EQ(leTudo("s/a/a.ho2"), "2");
  EXPECT_EQ(leTudo("s/a/notas.txt"), "minhas");
  EXPECT_EQ(leTudo("s/a/amostras/x"), "y");
  EXPECT_FALSE(existe("s/a/mensagens.txt"));
  fechaObra(obra);
  EXPECT_FALSE(existe("s/.vorplex-lote-obra"));
}

TEST_F(Obra, SoPastasDeResultadosSaoTrocadas) {
  abre();
  fs::create_directories("s/alheia");
  grava("s/alheia/tese.doc", "x");
  fs::create_directory("s/vazia");
  grava("s/arquivo", "x");
  fs::create_symlink("nenhum", "s/solto");
  EXPECT_FALSE(livre(obra, "alheia"));
  EXPECT_FALSE(livre(obra, "arquivo"));
  EXPECT_FALSE(livre(obra, "solto"));
  EXPECT_TRUE(livre(obra, "vazia"));
  EXPECT_TRUE(livre(obra, "nova"));
  fechaObra(obra);
}

// What the places hold when the run is killed between the two renames, or after them.
TEST_F(Obra, SobrasDeUmaCorridaMortaSaoResolvidas) {
  abre();
  faz("a", "1");
  ASSERT_TRUE(publica(obra, "a"));
  grava("s/a/notas.txt", "minhas");
  fs::rename("s/a", "s/.vorplex-lote-obra/velha-a");
  faz("a", "2");
  close(obra.trava);

  abre();  // between: the old one comes back whole
  EXPECT_EQ(leTudo("s/a/a.ho2"), "1");
  EXPECT_EQ(leTudo("s/a/notas.txt"), "minhas");
  EXPECT_FALSE(existe("s/.vorplex-lote-obra/nova-a"));

  fs::rename("s/a", "s/.vorplex-lote-obra/velha-a");
  faz("a", "2");
  fs::rename("s/.vorplex-lote-obra/nova-a", "s/a");
  close(obra.trava);
  abre();  // after: the new one stays, with what is the user's
  EXPECT_EQ(leTudo("s/a/a.ho2"), "2");
  EXPECT_EQ(leTudo("s/a/notas.txt"), "minhas");
  fechaObra(obra);
  EXPECT_FALSE(existe("s/.vorplex-lote-obra"));
}

TEST_F(Obra, DuasCorridasNaoFazemAMesmaSaida) {
  abre();
  OBRA outra;
  EXPECT_EQ(abreObra(outra, "s", IDIOMA::pt),
            "A pasta de saida s esta em uso por outro vorplex-lote");
  EXPECT_EQ(outra.trava, -1);  // nothing stays open of a refused one
  fechaObra(obra);
}

// Whatever the reason: here a file has the place of the building site.
TEST_F(Obra, DepoisDeUmaRecusaOutraCorridaPodeComecar) {
  fs::create_directory("s");
  grava("s/.vorplex-lote-obra", "x");
  EXPECT_EQ(abreObra(obra, "s", IDIOMA::pt), "Nada pode ser feito na pasta de saida s (ja existe)");
  fs::remove("s/.vorplex-lote-obra");
  OBRA outra;
  ASSERT_EQ(abreObra(outra, "s", IDIOMA::pt), "");
  fechaObra(outra);
}

TEST_F(Obra, SaidaImpossivelEhDita) {
  grava("arquivo", "x");
  EXPECT_EQ(abreObra(obra, "arquivo/s", IDIOMA::pt),
            "Nada pode ser feito na pasta de saida arquivo/s (nao e' uma pasta)");
  EXPECT_EQ(abreObra(obra, "arquivo", IDIOMA::en),
            "Nothing can be made in output folder arquivo (Not a directory)");
}

}  // namespace
