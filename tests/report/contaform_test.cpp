#include "report/contaform.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "apoio/pasta.h"
#include "fim/fim.h"

namespace {

std::string contaForm() {
  testing::internal::CaptureStdout();
  ContaForm(0, nullptr);
  return testing::internal::GetCapturedStdout();
}

TEST(ContaForm, UmaLinhaPorArquivoHo2PorOrdemDeNomeSemTotal) {
  const PASTA pasta;
  grava("b.ho2", "0\n//correl f    l    c       d1       d2 deg\n");
  grava("a.ho2", "3\n//correl f    l    c       d1       d2 deg\n");
  grava("c.ho1", "5\n");
  grava("d.ho2.bak", "6\n");
  EXPECT_EQ(contaForm(), "a.ho2 3\nb.ho2 0\n");
}

TEST(ContaForm, PastaSemHo2NaoMostraNada) {
  const PASTA pasta;
  EXPECT_EQ(contaForm(), "");
}

TEST(ContaForm, MostraAPrimeiraPalavraComoEla) {
  const PASTA pasta;
  grava("a.ho2", " \t\r\n  12\t//correl");
  grava("b.ho2", "//correl f\n7\n");
  grava("c.ho2", "0012abc 5");
  EXPECT_EQ(contaForm(), "a.ho2 12\nb.ho2 //correl\nc.ho2 0012abc\n");
}

TEST(ContaForm, ArquivoSemPalavraMostraPalavraVaziaENaoAAnterior) {
  const PASTA pasta;
  grava("a.ho2", "152\n");
  grava("b.ho2", "");
  grava("c.ho2", " \n \n");
  EXPECT_EQ(contaForm(), "a.ho2 152\nb.ho2 \nc.ho2 \n");
}

TEST(ContaForm, PalavraDeQualquerTamanho) {
  const PASTA pasta;
  const std::string longa(2U << 20U, '7');
  grava("a.ho2", longa + " 5");
  grava("b.ho2", "6");
  EXPECT_EQ(contaForm(), "a.ho2 " + longa + "\nb.ho2 6\n");
}

TEST(ContaForm, PastaChamadaHo2NaoEntra) {
  const PASTA pasta;
  std::filesystem::create_directory("pasta.ho2");
  std::filesystem::create_symlink("nenhum", "quebrado.ho2");
  grava("z.ho2", "1");
  EXPECT_EQ(contaForm(), "z.ho2 1\n");
}

// Runs with standard output in the file "saida" and without the super-user's right to open
// everything.
[[noreturn]] void contaFormSemPrivilegio() {
  dup2(open("saida", O_WRONLY | O_CREAT | O_TRUNC, 0666), STDOUT_FILENO);
  constexpr uid_t ninguem = 65534;
  if (geteuid() == 0 && seteuid(ninguem) != 0) std::_Exit(99);
  std::_Exit(fim::executa([] {
    ContaForm(0, nullptr);
    return 0;
  }));
}

TEST(ContaForm, ArquivoQueNaoAbreEhErroDepoisDosOutros) {
  const PASTA pasta;
  std::filesystem::permissions(".", std::filesystem::perms(0755));
  for (const char* nome : {"a.ho2", "b.ho2", "c.ho2", "d.ho2"}) grava(nome, "4\n");
  std::filesystem::permissions("b.ho2", std::filesystem::perms::none);
  std::filesystem::permissions("d.ho2", std::filesystem::perms::none);
  EXPECT_EXIT(contaFormSemPrivilegio(), testing::ExitedWithCode(1),
              "Erro abertura arquivo b.ho2\n");
  EXPECT_EQ(leTudo("saida"), "a.ho2 4\nc.ho2 4\n");
}

}  // namespace
