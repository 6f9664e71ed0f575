#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "apoio/detector.h"
#include "apoio/figuras.h"
#include "apoio/pasta.h"
#include "roda_apura.h"

// A photograph with two discs and a square, and a list that has them roughly, among others.
struct Apura : testing::Test {
  PASTA pasta;

  void SetUp() override {
    grava("foto.pgm", pgm(fotoDeGraos()));
    grava("lista.ho1", listaHo(deteccoes()));
  }

  static std::vector<MAXLOCAL> deteccoes() {
    return {{0.5F, 'c', 31, 35, 19, 19, 0},  {0.45F, 'c', 70, 26, 16, 16, 0},
            {0.4F, 'q', 44, 85, 17, 17, 0},  {0.3F, 'e', 30, 34, 24, 18, 30},
            {0.1F, 'c', 15, 100, 12, 12, 0}, {0.1F, 'q', 70, 60, 14, 14, 0}};
  }

  // What it leaves in `saida` with these options.
  static std::string feito(std::vector<std::string> opcoes, const std::string& saida = "g.csv",
                           const std::string& foto = "foto.pgm") {
    opcoes.insert(opcoes.end(), {foto, "lista.ho1", saida});
    const CORRIDA c = rodaApura(opcoes);
    EXPECT_EQ(c.estado, 0) << c.erro;
    EXPECT_EQ(c.erro, "");
    return leTudo(saida);
  }
};

inline std::size_t linhas(const std::string& texto) {
  return static_cast<std::size_t>(std::count(texto.begin(), texto.end(), '\n'));
}
