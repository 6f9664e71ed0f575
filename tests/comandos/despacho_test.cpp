#include <gtest/gtest.h>

#include "apoio/executa.h"

TEST(Despacho, SemArgumentosMostraListaEErroSemTempo) {
  const EXECUCAO e = executa({});
  EXPECT_EQ(e.estado, 1);
  EXPECT_TRUE(e.saida.starts_with(titulo + "Programas:\n  Kernel    - "));
  EXPECT_EQ(e.saida.find("Tempo gasto"), std::string::npos);
  EXPECT_EQ(e.erro, "Erro: Numero de argumentos invalido\n");
}
