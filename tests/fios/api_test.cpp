#include <gtest/gtest.h>

#include <array>
#include <barrier>
#include <opencv2/core.hpp>
#include <string>
#include <thread>
#include <vector>

#include "apoio/detector.h"
#include "apoio/figuras.h"
#include "vorplex/vorplex.h"

namespace {

vorplex::Image vistaDe(const cv::Mat_<unsigned char>& img) {
  return {img.data, {img.rows, img.cols}, static_cast<std::ptrdiff_t>(img.step[0])};
}

// All that a picture goes through, from the text of the kernels to the measures.
std::string medidas(const cv::Mat_<unsigned char>& img, const std::string& texto) {
  const auto image = vistaDe(img);
  const auto kernels = vorplex::kernels_from_text(texto);
  const auto mantidos = vorplex::filter(image.extent, vorplex::search(image, kernels, 0.05));
  std::string saida;
  for (const auto& g : vorplex::measure(image.extent, mantidos)) {
    saida +=
        cv::format("%a %c %a %a %a %a\n", static_cast<double>(g.detection.correlation),
                   g.detection.shape, g.detection.row, g.detection.column, g.area, g.perimeter);
  }
  return saida;
}

}  // namespace

// While a third search, of the first picture, is cancelled again and again. Several rounds: the
// thread sanitizer sees a conflict only when nothing happened to order the threads.
TEST(ApiEmFios, DuasImagensAoMesmoTempoEUmaTerceiraCancelada) {
  constexpr int rodadas = 4;
  const cv::Mat_<unsigned char> foto = fotoDeGraos();
  cv::Mat_<unsigned char> virada;
  cv::flip(foto, virada, -1);
  const std::array<cv::Mat_<unsigned char>, 2> fotos = {foto, virada};
  const std::array<std::string, 2> textos = {
      "passoang 45 escoitava 2 circulo 21 quadrado 19 retangulo 24 11",
      "passoang 30 escoitava 3 circulo 24 elipse 30 18"};
  const auto kernels = vorplex::kernels_from_text(textos[0]);
  std::array<std::vector<std::string>, 2> juntas;
  int canceladas = 0;
  std::barrier<> partida(3);
  {
    std::vector<std::jthread> fios;
    for (std::size_t i = 0; i < 2; ++i) {
      fios.emplace_back([&, i] {
        for (int r = 0; r < rodadas; ++r) {
          partida.arrive_and_wait();
          juntas.at(i).push_back(medidas(fotos.at(i), textos.at(i)));
        }
      });
    }
    fios.emplace_back([&] {
      for (int r = 0; r < rodadas; ++r) {
        partida.arrive_and_wait();
        try {
          vorplex::search(vistaDe(foto), kernels, 0.05,
                          [](const vorplex::Progress& p) { return p.groups_done == 0; });
        } catch (const vorplex::Cancelled&) {
          ++canceladas;
        }
      }
    });
  }
  EXPECT_EQ(canceladas, rodadas);
  for (std::size_t i = 0; i < 2; ++i) {
    const std::string sozinha = medidas(fotos.at(i), textos.at(i));
    EXPECT_GT(sozinha.size(), 200U);
    EXPECT_EQ(juntas.at(i), std::vector<std::string>(rodadas, sozinha)) << i;
  }
}

// Each with threads of its own.
TEST(ApiEmFios, DuasImagensApuradasAoMesmoTempo) {
  const cv::Mat_<unsigned char> foto = fotoDeGraos();
  const auto image = vistaDe(foto);
  const auto achados = vorplex::search(
      image, vorplex::kernels_from_text("escoitava 2 circulo 21 quadrado 19"), 0.05);
  const auto apura = [&](int fios) {
    vorplex::RefineOptions opcoes;
    opcoes.threads = fios;
    std::string saida;
    for (const auto& g : vorplex::refine(image, achados, opcoes)) {
      saida += cv::format("%c %a %a %a %a\n", g.detection.shape, g.detection.row,
                          g.detection.column, g.detection.d1, g.support);
    }
    return saida;
  };
  const std::string sozinha = apura(1);
  EXPECT_GT(sozinha.size(), 50U);
  for (int rodada = 0; rodada < 3; ++rodada) {
    std::array<std::string, 2> juntas;
    {
      const std::jthread outro([&] { juntas[0] = apura(3); });
      juntas[1] = apura(2);
    }
    EXPECT_EQ(juntas[0], sozinha);
    EXPECT_EQ(juntas[1], sozinha);
  }
}
