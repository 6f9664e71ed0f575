#pragma once

#include <gtest/gtest.h>

#include <cctype>
#include <string>

#include "apoio/executa.h"

// The number of digits that `texto` begins with.
inline std::size_t algarismos(const std::string& texto) {
  std::size_t n = 0;
  while (n < texto.size() && std::isdigit(static_cast<unsigned char>(texto[n])) != 0) ++n;
  return n;
}

// Whether a line is the one of the elapsed time.
inline bool ehTempo(std::string linha) {
  const std::string inicio = "Tempo gasto: ";
  if (!linha.starts_with(inicio)) return false;
  linha.erase(0, inicio.size());
  const std::size_t segundos = algarismos(linha);
  if (segundos == 0) return false;
  linha.erase(0, segundos);
  return linha.starts_with('.') && algarismos(linha.substr(1)) == 2 &&
         linha.substr(3) == " segundos.\n";
}

// Whether `erro` is the one line of the failed assertion of the given function of a source.
inline void confereAfirmacao(const std::string& erro, const std::string& arquivo,
                             const std::string& funcao, const std::string& expressao) {
  const std::string inicio = "Vorplex: " + arquivo + ":";
  ASSERT_TRUE(erro.starts_with(inicio)) << erro;
  const std::string resto = erro.substr(inicio.size());
  EXPECT_GT(algarismos(resto), 0U) << erro;
  EXPECT_EQ(resto.substr(algarismos(resto)),
            ": " + funcao + ": Assertion `" + expressao + "' failed.\n");
}

// Whether a run printed exactly the banner, `texto` and the elapsed time, and ended well.
inline void confereSucesso(const EXECUCAO& e, const std::string& texto) {
  EXPECT_EQ(e.estado, 0);
  EXPECT_EQ(e.erro, "");
  ASSERT_TRUE(e.saida.starts_with(titulo + texto)) << e.saida;
  EXPECT_TRUE(ehTempo(e.saida.substr(titulo.size() + texto.size()))) << e.saida;
}

// Whether a run printed exactly the banner and `texto`, and ended with the error line `erro`.
inline void confereErro(const EXECUCAO& e, const std::string& texto, const std::string& erro) {
  EXPECT_EQ(e.estado, 1);
  EXPECT_EQ(e.saida, titulo + texto);
  EXPECT_EQ(e.erro, erro + "\n");
}
