#pragma once

#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "apoio/executa.h"

// Whether a run printed exactly the banner, `texto` and the elapsed time, and ended well.
inline void confereSucesso(const EXECUCAO& e, const std::string& texto) {
  EXPECT_EQ(e.estado, 0);
  EXPECT_EQ(e.erro, "");
  EXPECT_TRUE(e.saida.starts_with(titulo)) << e.saida;
  static const std::regex tempo("Tempo gasto: [0-9]+\\.[0-9][0-9] segundos\\.\n$");
  EXPECT_TRUE(std::regex_search(e.saida, tempo)) << e.saida;
  EXPECT_EQ(miolo(e), texto);
}

// Whether a run printed exactly the banner and `texto`, and ended with the error line `erro`.
inline void confereErro(const EXECUCAO& e, const std::string& texto, const std::string& erro) {
  EXPECT_EQ(e.estado, 1);
  EXPECT_EQ(e.saida, titulo + texto);
  EXPECT_EQ(e.erro, erro + "\n");
}
