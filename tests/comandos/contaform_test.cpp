#include <gtest/gtest.h>

#include "apoio/figuras.h"
#include "apoio/pasta.h"
#include "confere.h"

namespace {

const MAXLOCAL circulo = {0.5F, 'c', 10, 10, 9, 9, 0};

TEST(ComandoContaForm, UmaLinhaPorArquivoSemTotal) {
  const PASTA pasta;
  grava("b.ho2", listaHo({}));
  grava("a.ho2", listaHo({circulo, circulo, circulo}));
  grava("a.ho1", listaHo({circulo}));
  std::filesystem::create_directory("sub");
  grava("sub/c.ho2", listaHo({circulo}));
  confereSucesso(executa({"contaform"}), "a.ho2 3\nb.ho2 0\n");
}

TEST(ComandoContaForm, ArgumentosSaoIgnorados) {
  const PASTA pasta;
  grava("a.ho2", listaHo({circulo}));
  confereSucesso(executa({"ContaForm", "x", "y", "z"}), "a.ho2 1\n");
}

TEST(ComandoContaForm, PastaVaziaNaoMostraNada) {
  const PASTA pasta;
  confereSucesso(executa({"contaform"}), "");
}

TEST(ComandoContaForm, MostraACabecaENuncaOCabecalho) {
  const PASTA pasta;
  grava("a.ho2", "12\n//correl f    l    c       d1       d2 deg\n");
  grava("b.ho2", "doze\n");
  grava("c.ho2", "");
  grava("d.ho2", std::string(100000, '9') + "\n");
  confereSucesso(executa({"contaform"}),
                 "a.ho2 12\nb.ho2 doze\nc.ho2 \nd.ho2 " + std::string(100000, '9') + "\n");
}

TEST(ComandoContaForm, PalavraLongaNaoCustaMemoria) {
  const PASTA pasta;
  grava("a.ho2", "1");
  [[maybe_unused]] const EXECUCAO curta = executa({"contaform"});
  constexpr std::size_t megas = std::size_t{1} << 20U;
  grava("a.ho2", std::string(64 * megas, '1'));
  grava("b.ho2", "2");
  const EXECUCAO longa = executa({"contaform"});
  EXPECT_EQ(longa.estado, 0);
  EXPECT_TRUE(miolo(longa) == "a.ho2 " + std::string(64 * megas, '1') + "\nb.ho2 2\n");
#ifndef VORPLEX_SANITIZE  // which keeps what has been freed
  EXPECT_LT(longa.memoria, curta.memoria + long{8 * megas});
#endif
}

TEST(ComandoContaForm, NomesComEspacosAcentosEPontosPorOrdemDeBytes) {
  const PASTA pasta;
  for (const char* nome :
       {"\xC3\xA1.ho2", "b c.ho2", "B.ho2", ".ho2", "a.1.2.ho2", "a%s.ho2", "A.HO2", "ho2"}) {
    grava(nome, "7");
  }
  confereSucesso(executa({"contaform"}),
                 ".ho2 7\nB.ho2 7\na%s.ho2 7\na.1.2.ho2 7\nb c.ho2 7\n\xC3\xA1.ho2 7\n");
}

TEST(ComandoContaForm, PastaELigacaoQuebradaChamadasHo2NaoEntram) {
  const PASTA pasta;
  std::filesystem::create_directory("a.ho2");
  std::filesystem::create_symlink("nenhum", "b.ho2");
  grava("c.ho2", "4");
  std::filesystem::create_symlink("c.ho2", "d.ho2");
  confereSucesso(executa({"contaform"}), "c.ho2 4\nd.ho2 4\n");
}

}  // namespace
