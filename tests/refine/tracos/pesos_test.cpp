#include "refine/tracos/pesos.h"

#include <gtest/gtest.h>

#include <cmath>

namespace refine {

TEST(Pesos, ProbabilidadeDaNota) {
  EXPECT_DOUBLE_EQ(probabilidade(0), 0.5);
  EXPECT_NEAR(probabilidade(std::log(3.0)), 0.75, 1e-15);
  EXPECT_NEAR(probabilidade(-std::log(4.0)), 0.2, 1e-15);
  EXPECT_EQ(probabilidade(1e300), 1);
  EXPECT_NEAR(probabilidade(-1e300), 0, 1e-200);
}

TEST(Pesos, NotaEhASomaDosTermos) {
  NOTA<2> nota;
  nota.termos = {{{1, 2, 3}, {-1, 0.5F, 0.25F}}};
  nota.constante = 10;
  EXPECT_DOUBLE_EQ(nota.de({5, 1}), 10 + 3 * 2 + 0.25 * 4);
}

TEST(Pesos, OsAprendidosDaoNotas) {
  const auto confere = [](const auto& nota) {
    bool algum = false;
    for (const TERMO_DA_NOTA& t : nota.termos) {
      EXPECT_GT(t.desvio, 0);
      EXPECT_TRUE(std::isfinite(t.media) && std::isfinite(t.coeficiente));
      algum = algum || t.coeficiente != 0;
    }
    EXPECT_TRUE(algum);
  };
  confere(pesosAprendidos().esboco);
  confere(pesosAprendidos().sozinha);
  confere(pesosAprendidos().acompanhada);
}

}  // namespace refine
