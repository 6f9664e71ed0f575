#include <gtest/gtest.h>

#include <array>
#include <barrier>
#include <string>
#include <thread>
#include <vector>

#include "apoio/detector.h"
#include "apoio/figuras.h"
#include "apoio/pasta.h"
#include "detect/correlacao.h"
#include "detect/maximos.h"
#include "detect/ordenacao.h"
#include "kernels/lekernels.h"
#include "pim/converte.h"

namespace {

// The list of an image, all kernels of a file taken for one group.
std::vector<MAXLOCAL> procuraEm(const cv::Mat_<unsigned char>& cinza, const std::string& cfg) {
  cv::Mat_<float> imagem;
  pim::converte(cinza, imagem, 1 / 255.0, 0.0);
  PIRAMIDE piramide;
  constroiPiramide(piramide, imagem, 4);
  std::vector<MASCARA> kernels;
  leKernels(cfg, kernels);
  MELHORCORREL melhor;
  MELHORKERNEL qual;
  correlaGrupo(piramide, kernels, 0, static_cast<int>(kernels.size()) - 1, melhor, qual);
  std::vector<MAXLOCAL> todos;
  findMaxLocal(melhor, qual, kernels, todos, 0.05);
  ordena(todos, 0, static_cast<int>(todos.size()) - 1);
  std::vector<MAXLOCAL> mantidos;
  eliminaProximo(todos, mantidos, 2);
  return mantidos;
}

cv::Mat_<unsigned char> virada(const cv::Mat_<unsigned char>& img) {
  cv::Mat_<unsigned char> saida;
  cv::flip(img, saida, -1);
  return saida;
}

}  // namespace

// Each from the file of kernels to the list, with images and kernels of its own. Several rounds:
// the thread sanitizer sees a conflict only when nothing happened to order the two threads.
TEST(FiosProcura, DuasImagensAoMesmoTempoDaoAsListasDeCadaUmaSozinha) {
  const PASTA pasta;
  grava("0.cfg", "passoang 45 escoitava 2 circulo 21 quadrado 19 retangulo 24 11 elipse 26 15");
  grava("1.cfg", "passoang 30 escoitava 3 circulo 24 elipse 30 18");
  const std::array<cv::Mat_<unsigned char>, 2> fotos = {fotoDeGraos(), virada(fotoDeGraos())};
  constexpr int rodadas = 8;
  std::array<std::vector<std::string>, 2> juntas;
  std::barrier<> partida(2);
  const auto fio = [&](std::size_t i) {
    for (int rodada = 0; rodada < rodadas; ++rodada) {
      partida.arrive_and_wait();
      juntas.at(i).push_back(listaHo(procuraEm(fotos.at(i), std::to_string(i) + ".cfg")));
    }
  };
  std::thread primeiro(fio, 0);
  std::thread segundo(fio, 1);
  primeiro.join();
  segundo.join();
  for (std::size_t i = 0; i < 2; ++i) {
    const std::vector<MAXLOCAL> sozinha = procuraEm(fotos.at(i), std::to_string(i) + ".cfg");
    EXPECT_GT(sozinha.size(), 10U);
    EXPECT_EQ(juntas.at(i), std::vector<std::string>(rodadas, listaHo(sozinha))) << i;
  }
}
