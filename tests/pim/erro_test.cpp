#include "pim/erro.h"

#include <unistd.h>

#include <csignal>
#include <cstdio>

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
