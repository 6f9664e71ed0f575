#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "apoio/executa.h"
#include "apoio/figuras.h"
#include "apoio/pasta.h"

// One bad input: what is done to a folder of good ones, what is run there, and how that must end.
struct RUIM {
  const char* nome;               // of the test
  void (*prepara)();              // changes the folder of `ComEntradasRuins`
  std::vector<std::string> args;  // of the program
  std::string erro;               // the line on standard error; its beginning when it ends in "..."
  std::string saida = "";         // a file that must not be there afterwards
  bool semPoderes = false;        // whether the permissions of files count
};

// Names the row in the list of tests and in messages.
inline void PrintTo(const RUIM& r, std::ostream* s) {
  *s << r.nome;
}
inline std::string nomeDaLinha(const testing::TestParamInfo<RUIM>& info) {
  return info.param.nome;
}

// What a bad input may cost. Sanitizers take more of both.
#ifdef VORPLEX_SANITIZE
inline constexpr double maximoDeSegundos = 50;
inline constexpr long maximoDeMemoria = 4000000000;
#else
inline constexpr double maximoDeSegundos = 5;
inline constexpr long maximoDeMemoria = 1000000000;
#endif

inline void confereCusto(const EXECUCAO& e) {
  EXPECT_LT(e.cpu, maximoDeSegundos);
  EXPECT_LT(e.memoria, maximoDeMemoria);
}

// Whether `erro` is the expected line; only its beginning where the end is another library's.
inline void confereLinha(const std::string& erro, std::string esperada) {
  if (!esperada.ends_with("...")) {
    EXPECT_EQ(erro, esperada + "\n");
    return;
  }
  esperada.resize(esperada.size() - 3);
  EXPECT_EQ(erro.substr(0, esperada.size()), esperada);
  EXPECT_EQ(erro.find('\n') + 1, erro.size());
}

// A folder with good inputs for every sub-program: the photograph a.pgm of a dark disc, kernel.cfg,
// a.ho1 and a.ho2 with two circles, and their classes a.mat.
struct ComEntradasRuins : testing::TestWithParam<RUIM> {
  PASTA pasta;

  ComEntradasRuins() {
    cv::Mat_<unsigned char> foto(48, 64, static_cast<unsigned char>(200));
    for (int l = -7; l <= 7; ++l) {
      for (int c = -7; c <= 7; ++c) {
        if (l * l + c * c <= 49) foto(24 + l, 32 + c) = 20;
      }
    }
    grava("a.pgm", pgm(foto));
    grava("kernel.cfg", "escoitava 2\ncirculo 15\n");
    const std::string lista = listaHo({{0.9F, 'c', 24, 32, 15, 15, 0}, {0.5F, 'c', 9, 9, 9, 9, 0}});
    grava("a.ho1", lista);
    grava("a.ho2", lista);
    grava("a.mat", "P2\n2 1\n255\n1 2\n");
  }

  static EXECUCAO roda(const RUIM& r) {
    return r.semPoderes ? executaSemPoderes(r.args) : executa(r.args);
  }

  // The run must end with the error line and exit status 1, soon, in little memory, and without the
  // output.
  static void confere(const RUIM& r) {
    if (r.semPoderes && !perdePoderes()) GTEST_SKIP() << "the superuser may open any file here";
    r.prepara();
    const EXECUCAO e = roda(r);
    EXPECT_EQ(e.estado, 1);
    EXPECT_EQ(e.sinal, 0);
    confereLinha(e.erro, r.erro);
    EXPECT_EQ(e.saida.find("Tempo gasto"), std::string::npos);
    EXPECT_FALSE(!r.saida.empty() && existe(r.saida));
    confereCusto(e);
  }
};

// Runs on those files.
using ARGS = std::vector<std::string>;
inline const ARGS filtra = {"filtra", "a.pgm", "a.ho1", "b.ho2"};
inline const ARGS traca = {"traca", "a.pgm", "a.ho1", "b.png"};
inline const ARGS extraiam = {"extraiam", "a.pgm", "1"};
inline const ARGS extraicla = {"extraicla", "a.pgm", "1"};

// What happens to one file.
inline constexpr std::uintmax_t gigas = std::uintmax_t{1} << 30U;
inline void apaga(const std::string& nome) {
  std::filesystem::remove(nome);
}
inline void fazPasta(const std::string& nome) {
  apaga(nome);
  std::filesystem::create_directory(nome);
}
inline void fazEsparso(const std::string& nome, std::uintmax_t bytes,
                       const std::string& inicio = "") {
  grava(nome, inicio);
  std::filesystem::resize_file(nome, bytes);
}
inline void proibe(const std::string& nome) {
  std::filesystem::permissions(nome, std::filesystem::perms::none);
}
inline void corta(const std::string& nome, std::size_t bytes) {
  grava(nome, leTudo(nome).substr(0, bytes));
}
