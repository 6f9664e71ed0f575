#include "shell/despacho.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "apoio/erros.h"
#include "apoio/executa.h"
#include "apoio/pasta.h"

namespace {

void despachaTextos(std::vector<std::string> args) {
  std::vector<char*> argv;
  for (std::string& a : args) argv.push_back(a.data());
  argv.push_back(nullptr);
  EXPECT_EQ(despacha(static_cast<int>(args.size()), argv.data()), 0);
}

// Runs the dispatcher in this process and gives what it wrote on standard output.
std::string despachada(const std::vector<std::string>& args) {
  testing::internal::CaptureStdout();
  despachaTextos(args);
  return testing::internal::GetCapturedStdout();
}

std::string tempoMostrado(int centesimos) {
  testing::internal::CaptureStdout();
  mostraTempo(centesimos);
  return testing::internal::GetCapturedStdout();
}

}  // namespace

TEST(MostraTempo, SeparaSegundosECentesimos) {
  EXPECT_EQ(tempoMostrado(1234), "Tempo gasto: 12.34 segundos.\n");
  EXPECT_EQ(tempoMostrado(5), "Tempo gasto: 0.05 segundos.\n");
  EXPECT_EQ(tempoMostrado(0), "Tempo gasto: 0.00 segundos.\n");
  EXPECT_EQ(tempoMostrado(100), "Tempo gasto: 1.00 segundos.\n");
  EXPECT_EQ(tempoMostrado(2147483647), "Tempo gasto: 21474836.47 segundos.\n");
}

TEST(MostraTempo, TempoNegativoSaiComoADivisaoDa) {
  EXPECT_EQ(tempoMostrado(-150), "Tempo gasto: -1.-50 segundos.\n");
  EXPECT_EQ(tempoMostrado(-5), "Tempo gasto: 0.-5 segundos.\n");
  EXPECT_EQ(tempoMostrado(-200), "Tempo gasto: -2.00 segundos.\n");
}

TEST(Despacha, SemNomeOuComNomeDesconhecidoTerminaPeloErro) {
  const auto erro = [](const std::vector<std::string>& args) {
    testing::internal::CaptureStdout();
    const std::string lancado = erroDe([&] { despachaTextos(args); });
    testing::internal::GetCapturedStdout();
    return lancado;
  };
  EXPECT_EQ(erro({"Vorplex"}), "Erro: Numero de argumentos invalido");
  EXPECT_EQ(erro({"Vorplex", "Foo", "x"}), "Erro: Programa inexistente foo");
}

TEST(Despacha, OSubprogramaVeOsSeusArgumentosAPartirDoSegundo) {
  const PASTA pasta;
  grava("a.ho2", "0\n//correl f    l    c       d1       d2 deg\n");
  const std::string saida = despachada({"Vorplex", "RELAT", "a.ho2", "a.rel"});
  EXPECT_TRUE(saida.starts_with(titulo)) << saida;
  EXPECT_TRUE(existe("a.rel"));
}

TEST(Despacha, MostraOTempoNoFim) {
  const PASTA pasta;
  const std::string saida = despachada({"Vorplex", "ContaForm"});
  EXPECT_TRUE(saida.starts_with(titulo + "Tempo gasto: ")) << saida;
  EXPECT_TRUE(saida.ends_with(" segundos.\n")) << saida;
}
