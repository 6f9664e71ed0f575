#include "sugere/recado.h"

#include <gtest/gtest.h>

#include "apoio/erros.h"

TEST(Recado, VaiEVolta) {
  for (const bool inverte : {false, true}) {
    const std::string linha = sugere::linhaDoRecado({inverte, 0.005});
    const sugere::RECADO r = sugere::leRecado("circulo 20\n" + linha + "\nquadrado 8", "k.cfg");
    EXPECT_EQ(r.inverte, inverte);
    EXPECT_EQ(r.minCorr, 0.005);
  }
  EXPECT_EQ(sugere::linhaDoRecado({true, 0.02}), "// vorplex-lote: -i -c 0.02");
  EXPECT_EQ(sugere::linhaDoRecado({}), "// vorplex-lote:");
}

TEST(Recado, SemALinhaNadaDiz) {
  for (const char* texto : {"", "circulo 20 // vorplex-lote: -i\n", "// vorplex-lote -i\n",
                            "  // vorplex-lote: -i\n", "//vorplex-lote: -i"}) {
    const sugere::RECADO r = sugere::leRecado(texto, "k.cfg");
    EXPECT_FALSE(r.inverte) << texto;
    EXPECT_FALSE(r.minCorr.has_value()) << texto;
  }
}

TEST(Recado, APrimeiraLinhaVale) {
  const sugere::RECADO r =
      sugere::leRecado("// vorplex-lote: -c 1e-2\r\n// vorplex-lote: -i", "k.cfg");
  EXPECT_FALSE(r.inverte);
  EXPECT_EQ(r.minCorr, 0.01);
}

TEST(Recado, OQueNaoEntendeEhErro) {
  const auto erro = [](const std::string& linha) {
    return erroDe([&] { sugere::leRecado("\n// vorplex-lote: " + linha, "k.cfg"); });
  };
  EXPECT_EQ(erro("-i -e 3"), "Erro: Palavra desconhecida -e (k.cfg, linha 2)");
  EXPECT_EQ(erro("-c"), "Erro: Palavra desconhecida -c (k.cfg, linha 2)");
  EXPECT_EQ(erro("-c x"), "Erro: Palavra desconhecida x (k.cfg, linha 2)");
  EXPECT_EQ(erro("-c nan"), "Erro: Palavra desconhecida nan (k.cfg, linha 2)");
}
