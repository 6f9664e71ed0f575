#include "fim/fim.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <new>
#include <opencv2/core.hpp>
#include <stdexcept>
#include <string>

#include "pim/erro.h"

namespace {

// Says something, with both outputs on one stream so that their order shows, and then ends as a
// process that does `trabalho`. As in a process, nobody catches what is thrown then.
void encerra(const std::function<int()>& trabalho) noexcept {
  dup2(STDERR_FILENO, STDOUT_FILENO);
  std::setvbuf(stdout, nullptr, _IOFBF, BUFSIZ);
  std::printf("pendente\n");
  std::exit(fim::executa(trabalho));
}

const auto um = testing::ExitedWithCode(1);
const auto abortado = testing::KilledBySignal(SIGABRT);

}  // namespace

TEST(Fim, SemErroOEstadoEhODoTrabalho) {
  EXPECT_EQ(fim::executa([] { return 0; }), 0);
  EXPECT_EQ(fim::executa([] { return 42; }), 42);
}

TEST(Fim, ErroEhUmaLinhaDepoisDaSaidaPendente) {
  EXPECT_EXIT(encerra([]() -> int { pim::erro("100%s ", "%n", "\x1B"); }), um,
              testing::Eq(std::string("pendente\n100%s %n\x1B\n")));
}

TEST(Fim, ControlesSoViramInterrogacaoNoTerminal) {
  const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
  if (terminal < 0 || grantpt(terminal) != 0 || unlockpt(terminal) != 0) {
    GTEST_SKIP() << "no pseudo-terminal here";
  }
  const int escravo = open(ptsname(terminal), O_RDWR | O_NOCTTY);
  if (escravo < 0) GTEST_SKIP() << "no pseudo-terminal here";
  const auto acao = [&] {
    dup2(escravo, STDERR_FILENO);
    std::exit(fim::executa([]() -> int { pim::erro("a\x1B[2J\x07"); }));
  };
  EXPECT_EXIT(acao(), um, "");
  std::array<char, 64> lidos{};
  const ssize_t n = read(terminal, lidos.data(), lidos.size());
  EXPECT_EQ(std::string(lidos.data(), static_cast<std::size_t>(std::max<ssize_t>(n, 0))),
            "a?[2J?\r\n");
  close(escravo);
  close(terminal);
}

TEST(Fim, OsBytesDaMensagemSaemTodos) {
  EXPECT_EXIT(encerra([]() -> int { pim::erro(std::string("a\0b", 3)); }), um,
              testing::Eq(std::string("pendente\na\0b\n", 13)));
}

TEST(Fim, AsVariaveisSaoDesfeitasAntesDaLinha) {
  struct DESPEDIDA {
    ~DESPEDIDA() { std::printf("desfeita\n"); }
  };
  const auto trabalho = []() -> int {
    const DESPEDIDA despedida;
    pim::erro("erro");
  };
  EXPECT_EXIT(encerra(trabalho), um, testing::Eq(std::string("pendente\ndesfeita\nerro\n")));
}

TEST(Fim, AfirmacaoAbortaComOTextoDaBibliotecaC) {
  const auto trabalho = []() -> int {
    pim::assercaoFalhou("0<=s && s<n", {"vorplex", 42, "void f(int, int)"});
  };
  EXPECT_EXIT(encerra(trabalho), abortado,
              testing::Eq(std::string("pendente\nteste_fim: vorplex:42: void f(int, int): "
                                      "Assertion `0<=s && s<n' failed.\n")));
}

TEST(Fim, FaltaDeMemoriaEhErro) {
  EXPECT_EXIT(encerra([]() -> int { throw std::bad_alloc(); }), um,
              testing::Eq(std::string("pendente\nErro: Memoria insuficiente\n")));
}

TEST(Fim, ErroDaBibliotecaDeImagensEhErro) {
  const auto trabalho = []() -> int { throw cv::Exception(-1, "motivo", "f", "a.cpp", 1); };
  EXPECT_EXIT(encerra(trabalho), um, testing::Eq(std::string("pendente\nErro: motivo\n")));
}

TEST(Fim, ContagemImpossivelEhDitaAntesDeAbortar) {
  const auto trabalho = []() -> int { throw pim::CONTAGEM_IMPOSSIVEL("Erro: -1"); };
  EXPECT_EXIT(encerra(trabalho), abortado,
              testing::Eq(std::string("pendente\nErro: -1\n"
                                      "terminate called after throwing an instance of "
                                      "'std::length_error'\n  what():  vector::reserve\n")));
}

TEST(Fim, OutrasExcecoesPassam) {
  EXPECT_THROW(fim::executa([]() -> int { throw std::out_of_range("x"); }), std::out_of_range);
  EXPECT_THROW(fim::executa([]() -> int { throw pim::CONTAGEM_IMPOSSIVEL("x"); }),
               std::length_error);
}
