#include "pim/erro.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>

#include "apoio/erros.h"

TEST(Erro, JuntaOsTresTextosEmUmaLinha) {
  EXPECT_EQ(erroDe([] { pim::erro("Erro: Programa inexistente ", "foo", "!"); }),
            "Erro: Programa inexistente foo!");
}

TEST(Erro, TextosAusentesNaoAcrescentamNada) {
  EXPECT_EQ(erroDe([] { pim::erro("Erro: Numero de argumentos invalido", "", ""); }),
            "Erro: Numero de argumentos invalido");
  EXPECT_EQ(erroDe([] { pim::erro("so um"); }), "so um");
}

TEST(Erro, PorcentagemNoTextoNaoEhFormato) {
  EXPECT_EQ(erroDe([] { pim::erro("100%s ", "%n%d"); }), "100%s %n%d");
}

TEST(Erro, QuemNaoConheceOTipoVeAMensagem) {
  try {
    pim::erro("Erro: ", "x");
  } catch (const std::exception& e) {
    EXPECT_STREQ(e.what(), "Erro: x");
  }
}

TEST(Afirma, VerdadeNaoFazNada) {
  EXPECT_EQ(assercaoDe([] { pim::afirma(true, "x", {"vorplex", 1, "void f()"}); }), "");
}

TEST(Afirma, MentiraDizOndeEOQue) {
  const auto mente = [] { pim::afirma(false, "0<=s && s<n", {"vorplex", 42, "void f(int, int)"}); };
  EXPECT_EQ(assercaoDe(mente), "vorplex:42: void f(int, int): Assertion `0<=s && s<n' failed.");
  try {
    mente();
  } catch (const pim::ASSERCAO& e) {
    EXPECT_STREQ(e.expressao, "0<=s && s<n");
    EXPECT_STREQ(e.local.arquivo, "vorplex");
    EXPECT_EQ(e.local.linha, 42U);
    EXPECT_STREQ(e.local.funcao, "void f(int, int)");
  }
}

// What a shared module with symbols of its own throws, which was linked apart from this program.
TEST(Erro, LancadoNumModuloEhApanhadoForaDele) {
  const std::filesystem::path pasta = std::filesystem::read_symlink("/proc/self/exe").parent_path();
  void* modulo = dlopen((pasta / "modulo_que_lanca.so").c_str(), RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(modulo, nullptr) << dlerror();
  using LANCA = void (*)();
  const auto operacao = [&](const char* nome) {
    return reinterpret_cast<LANCA>(dlsym(modulo, nome));
  };
  EXPECT_EQ(erroDe(operacao("lancaErro")), "Erro: do modulo");
  EXPECT_EQ(assercaoDe(operacao("lancaAssercao")), "modulo:7: void f(): Assertion `x' failed.");
  EXPECT_THROW(operacao("lancaContagem")(), pim::CONTAGEM_IMPOSSIVEL);
}
