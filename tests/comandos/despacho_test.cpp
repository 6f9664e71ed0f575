#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <map>

#include "apoio/executa.h"
#include "apoio/pasta.h"

namespace {

const std::string erroDeArgumentos = "Erro: Numero de argumentos invalido\n";

// What each sub-program that needs arguments prints first when it gets none.
const std::map<std::string, std::string> primeiraLinha = {
    {"kernel", "Kernel kernel.cfg "},         {"correla", "Correla imagem.pgm "},
    {"traca", "Traca imagem.ppm "},           {"extraiam", "extraiAm: Extrai "},
    {"extraicla", "extraiCla: Extrai "},      {"filtra", "Filtra imagem.pgm "},
    {"oldcorrela", "OldCorrela imagem.pgm "}, {"relat", "Relat ent.ho2 "}};

// The name with every letter of the positions set in `mascara` made upper case.
std::string comMaiusculas(std::string nome, unsigned mascara) {
  for (std::size_t i = 0; i < nome.size(); ++i) {
    if ((mascara >> i & 1U) != 0) nome[i] = static_cast<char>(std::toupper(nome[i]));
  }
  return nome;
}

bool mostraTempo(const EXECUCAO& e) {
  return e.saida.find("Tempo gasto") != std::string::npos;
}

// Runs the executable, which stands beside this one, through the shell: for what redirections and
// limits show. Gives the exit status.
int pelaShell(const std::string& antes, const std::string& depois) {
  const auto pasta = std::filesystem::read_symlink("/proc/self/exe").parent_path();
  const std::string linha = antes + " '" + (pasta / "Vorplex").string() + "' " + depois;
  const int estado = std::system(linha.c_str());
  return WIFEXITED(estado) ? WEXITSTATUS(estado) : -1;
}

TEST(Despacho, NaoTemOpcoes) {
  for (const char* opcao : {"-h", "--help", "--ajuda", "-V", "--version", "--versao=1"}) {
    const EXECUCAO e = executa({opcao});
    EXPECT_EQ(e.estado, 1);
    EXPECT_EQ(e.saida, titulo);
    EXPECT_TRUE(e.erro.starts_with("Erro: Programa inexistente ")) << e.erro;
  }
}

}  // namespace

TEST(Despacho, SemArgumentosMostraListaEErroSemTempo) {
  const EXECUCAO e = executa({});
  EXPECT_EQ(e.estado, 1);
  const std::string lista =
      "Programas:\n"
      "  Kernel    - Gera imagem das mascaras a partir de kernel.cfg\n"
      "  Correla   - Maximos locais (.ho1) das correlacoes com mascaras multiformas\n"
      "  Traca     - Traca formas de maximos locais (.ho1 ou .ho2) sem filtrar\n"
      "  ExtraiAm  - Extrai amostras dentro das formas localizadas\n"
      "  ExtraiCla - Extrai amostras classificadas dentro das formas localizadas\n"
      "  Filtra    - Filtra maximos locais (.ho1)\n"
      "  OldCorrela- Maximos locais (.ho1) das correlacoes - versao antiga\n"
      "  Relat     - Le .ho2 e gera .rel\n"
      "  ContaForm - Le *.ho2 e imprime numero total de formas\n" +
      std::string(79, '.') + "\n";
  EXPECT_EQ(e.saida, titulo + lista);
  EXPECT_EQ(e.erro, erroDeArgumentos);
}

TEST(Despacho, QualquerMisturaDeMaiusculasEscolheOMesmoSubprograma) {
  for (const auto& [nome, linha] : primeiraLinha) {
    for (const unsigned mascara : {0U, 1U, 0x155U, 0xFFFFU}) {
      const EXECUCAO e = executa({comMaiusculas(nome, mascara)});
      EXPECT_EQ(e.estado, 1) << nome;
      EXPECT_TRUE(e.saida.starts_with(titulo + linha)) << e.saida;
      EXPECT_EQ(e.erro, erroDeArgumentos) << nome;
    }
  }
  const PASTA pasta;
  for (const char* nome : {"contaform", "ContaForm", "CONTAFORM"}) {
    const EXECUCAO e = executa({nome});
    EXPECT_EQ(e.estado, 0) << nome;
    EXPECT_EQ(miolo(e), "") << nome;
    EXPECT_TRUE(mostraTempo(e)) << nome;
  }
}

TEST(Despacho, NomeDesconhecidoEhRepetidoEmMinusculas) {
  for (const auto& [nome, eco] : {std::pair{"Foo", "foo"},
                                  {"KERNELS", "kernels"},
                                  {"corr", "corr"},
                                  {"", ""},
                                  {" relat", " relat"},
                                  {"%S%n", "%s%n"}}) {
    const EXECUCAO e = executa({nome, "a", "b"});
    EXPECT_EQ(e.estado, 1);
    EXPECT_EQ(e.saida, titulo);
    EXPECT_EQ(e.erro, std::string("Erro: Programa inexistente ") + eco + "\n");
  }
}

TEST(Despacho, ErroEmSubprogramaNaoMostraTempo) {
  const PASTA pasta;
  for (const auto& [nome, linha] : primeiraLinha)
    EXPECT_FALSE(mostraTempo(executa({nome}))) << nome;
  const EXECUCAO e = executa({"relat", "nada.ho2", "a.rel"});
  EXPECT_EQ(e.estado, 1);
  EXPECT_NE(e.erro.find("nada.ho2"), std::string::npos);
  EXPECT_FALSE(mostraTempo(e));
}

// A folder of photographs from others may hold files named like the program's own libraries.
TEST(Despacho, NadaEhCarregadoDaPastaCorrente) {
  const PASTA pasta;
  for (const char* nome : {"pimcodecs.so", "libc.so.6", "libm.so.6", "libz.so.1", "libstdc++.so.6",
                           "libgcc_s.so.1", "libmatio.so.11", "libtbb.so.12"}) {
    grava(nome, "nada");
  }
  grava("vazia.ho2", "0\n//\n");
  EXPECT_EQ(executa({"relat", "vazia.ho2", "vazia.rel"}).estado, 0);
  grava("kernel.cfg", "circulo 9");
  EXPECT_EQ(executa({"kernel", "kernel.cfg", "k.png"}).estado, 0);
}

TEST(Despacho, SaidaPadraoCheiaEhErro) {
  if (!existe("/dev/full")) GTEST_SKIP() << "no /dev/full here";
  const PASTA pasta;
  EXPECT_EQ(pelaShell("", "contaform 2>dito >/dev/full"), 1);
  EXPECT_EQ(leTudo("dito"), "Erro gravacao da saida padrao\n");
}

TEST(Despacho, SaidaEhLiberadaLinhaPorLinha) {
  const PASTA pasta;
  EXPECT_EQ(pelaShell("", "relat >dito 2>&1"), 1);
  EXPECT_EQ(leTudo("dito"), titulo + "Relat ent.ho2 sai.rel\n" + erroDeArgumentos);
}

TEST(Despacho, DiscoQueEncheNoMeioNaoDeixaUmaImagemPelaMetade) {
  const PASTA pasta;
  grava("k.cfg", "circulo 21\n");
  const std::string umBloco = "trap '' XFSZ; ulimit -f 1;";
  EXPECT_EQ(pelaShell(umBloco, "kernel k.cfg k.pgm 2>dito >/dev/null"), 1);
  EXPECT_EQ(leTudo("dito"), "Erro gravacao arquivo k.pgm\n");
  EXPECT_FALSE(std::filesystem::exists("k.pgm"));
}

#ifndef VORPLEX_SANITIZE  // which reserves more than any limit set here
TEST(Despacho, FaltaDeMemoriaEhUmaLinhaDeErro) {
  const PASTA pasta;
  grava("a.ho1", "0\n//correl f    l    c       d1       d2 deg\n");
  grava("grande.pgm", "P5 30000 30000 255\n");
  std::filesystem::resize_file("grande.pgm", 900000100);  // sparse
  const std::string comando = "traca grande.pgm a.ho1 b.ppm c 2>dito >/dev/null";
  EXPECT_EQ(pelaShell("ulimit -v 700000;", comando), 1);
  EXPECT_EQ(leTudo("dito"), "Erro: Memoria insuficiente\n");
}
#endif
