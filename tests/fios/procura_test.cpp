#include "detect/procura.h"

#include <gtest/gtest.h>

#include <array>
#include <barrier>
#include <string>
#include <thread>
#include <vector>

#include "apoio/detector.h"
#include "apoio/figuras.h"
#include "apoio/pasta.h"
#include "kernels/lekernels.h"

// Several rounds in every test: the thread sanitizer sees a conflict only when nothing happened to
// order the threads.

namespace {

using CINZA = cv::Mat_<unsigned char>;
using LISTA = std::vector<MAXLOCAL>;

constexpr int rodadas = 6;

LISTA procuraDoArquivo(const CINZA& img, const std::string& cfg) {
  std::vector<MASCARA> kernels;
  leKernels(cfg, kernels);
  return detect::procura(img, kernels, 0.05);
}

CINZA virada(const CINZA& img) {
  CINZA saida;
  cv::flip(img, saida, -1);
  return saida;
}

}  // namespace

// Each from the file of kernels to the list, with images and kernels of its own.
TEST(ProcuraEmFios, DuasImagensAoMesmoTempoDaoAsListasDeCadaUmaSozinha) {
  const PASTA pasta;
  grava("0.cfg", "passoang 45 escoitava 2 circulo 21 quadrado 19 retangulo 24 11 elipse 26 15");
  grava("1.cfg", "passoang 30 escoitava 3 circulo 24 elipse 30 18");
  const std::array<CINZA, 2> fotos = {fotoDeGraos(), virada(fotoDeGraos())};
  std::array<std::vector<std::string>, 2> juntas;
  std::barrier<> partida(2);
  const auto fio = [&](std::size_t i) {
    for (int rodada = 0; rodada < rodadas; ++rodada) {
      partida.arrive_and_wait();
      juntas.at(i).push_back(listaHo(procuraDoArquivo(fotos.at(i), std::to_string(i) + ".cfg")));
    }
  };
  std::thread primeiro(fio, 0);
  std::thread segundo(fio, 1);
  primeiro.join();
  segundo.join();
  for (std::size_t i = 0; i < 2; ++i) {
    const LISTA sozinha = procuraDoArquivo(fotos.at(i), std::to_string(i) + ".cfg");
    EXPECT_GT(sozinha.size(), 10U);
    EXPECT_EQ(juntas.at(i), std::vector<std::string>(rodadas, listaHo(sozinha))) << i;
  }
}

TEST(ProcuraEmFios, QuatroDaMesmaImagemComOsMesmosKernelsDaoOMesmo) {
  const PASTA pasta;
  grava("k.cfg", "passoang 45 escoitava 2 circulo 21 quadrado 19");
  std::vector<MASCARA> kernels;
  leKernels("k.cfg", kernels);
  const CINZA img = fotoDeGraos();
  const LISTA esperada = detect::procura(img, kernels, 0.05);
  for (int rodada = 0; rodada < rodadas; ++rodada) {
    std::array<LISTA, 4> achadas;
    std::vector<std::thread> fios;
    for (LISTA& lista : achadas) {
      fios.emplace_back([&] { lista = detect::procura(img, kernels, 0.05); });
    }
    for (std::thread& fio : fios) fio.join();
    for (const LISTA& lista : achadas) EXPECT_EQ(primeiraDiferenca(lista, esperada), -1);
  }
}
