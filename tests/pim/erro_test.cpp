#include "pim/erro.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "fabrica.h"

TEST(Erro, JuntaOsTresTextosEmUmaLinhaETerminaComEstadoUm) {
  ESPERA_ERRO(pim::erro("Erro: Programa inexistente ", "foo", "!"),
              "Erro: Programa inexistente foo!");
}

TEST(Erro, TextosAusentesNaoAcrescentamNada) {
  ESPERA_ERRO(pim::erro("Erro: Numero de argumentos invalido", "", ""),
              "Erro: Numero de argumentos invalido");
  ESPERA_ERRO(pim::erro("so um"), "so um");
}

TEST(Erro, PorcentagemNoTextoNaoEhFormato) {
  ESPERA_ERRO(pim::erro("100%s ", "%n%d"), "100%s %n%d");
}

TEST(Erro, SaidaPadraoPendenteEhEscritaAntes) {
  // Both go to one stream, so that their order shows.
  const auto acao = [] {
    dup2(STDERR_FILENO, STDOUT_FILENO);
    std::setvbuf(stdout, nullptr, _IOFBF, BUFSIZ);
    std::printf("pendente\n");
    pim::erro("depois");
  };
  ESPERA_ERRO(acao(), "pendente\ndepois");
}

TEST(Erro, ControlesSoViramInterrogacaoNoTerminal) {
  ESPERA_ERRO(pim::erro("a\x1B[2J\x07"), "a\x1B[2J\x07");
  const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
  if (terminal < 0 || grantpt(terminal) != 0 || unlockpt(terminal) != 0) {
    GTEST_SKIP() << "no pseudo-terminal here";
  }
  const int escravo = open(ptsname(terminal), O_RDWR | O_NOCTTY);
  if (escravo < 0) GTEST_SKIP() << "no pseudo-terminal here";
  const auto acao = [&] {
    dup2(escravo, STDERR_FILENO);
    pim::erro("a\x1B[2J\x07");
  };
  EXPECT_EXIT(acao(), testing::ExitedWithCode(1), "");
  std::array<char, 64> lidos{};
  const ssize_t n = read(terminal, lidos.data(), lidos.size());
  EXPECT_EQ(std::string(lidos.data(), static_cast<std::size_t>(std::max<ssize_t>(n, 0))),
            "a?[2J?\r\n");
  close(escravo);
  close(terminal);
}

TEST(Afirma, VerdadeNaoFazNada) {
  pim::afirma(true, "x", {"vorplex", 1, "void f()"});
  SUCCEED();
}

TEST(Afirma, MentiraAbortaComOTextoDaBibliotecaC) {
  EXPECT_EXIT(
      pim::afirma(false, "0<=s && s<n", {"vorplex", 42, "void f(int, int)"}),
      testing::KilledBySignal(SIGABRT),
      testing::ContainsRegex(
          "^[^:]+: vorplex:42: void f\\(int, int\\): Assertion `0<=s && s<n' failed\\.\n$"));
}

TEST(Afirma, SaidaPadraoPendenteEhEscritaAntes) {
  const auto acao = [] {
    dup2(STDERR_FILENO, STDOUT_FILENO);
    std::setvbuf(stdout, nullptr, _IOFBF, BUFSIZ);
    std::printf("pendente\n");
    pim::assercaoFalhou("x", {"vorplex", 1, "void f()"});
  };
  EXPECT_EXIT(acao(), testing::KilledBySignal(SIGABRT),
              testing::ContainsRegex("^pendente\n[^\n]*Assertion `x' failed\\.\n$"));
}
