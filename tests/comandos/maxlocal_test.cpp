#include <gtest/gtest.h>

#include <csignal>

#include "apoio/executa.h"
#include "apoio/pasta.h"

TEST(ListaDeMaximos, ContagemForaDoLimiteAbortaComErroDeTamanho) {
  for (const char* n : {"-1", "107374183"}) {
    const PASTA pasta;
    grava("a.ho2", std::string(n) + "\n//correl f    l    c       d1       d2 deg\n");
    const EXECUCAO e = executa({"relat", "a.ho2", "a.rel"});
    EXPECT_EQ(e.sinal, SIGABRT) << n;
    EXPECT_EQ(e.saida, titulo + "Lendo a.ho2...\n") << n;
    EXPECT_NE(e.erro.find("std::length_error"), std::string::npos) << e.erro;
    EXPECT_NE(e.erro.find("vector::reserve"), std::string::npos) << e.erro;
    EXPECT_FALSE(existe("a.rel")) << n;
  }
}
