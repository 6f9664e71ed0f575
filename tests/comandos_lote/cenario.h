#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "apoio/detector.h"
#include "apoio/figuras.h"
#include "apoio/pasta.h"
#include "roda_lote.h"

// Two small photographs, three grains in each, and a kernel.cfg that finds them.
struct Lote : testing::Test {
  PASTA pasta;

  void SetUp() override {
    grava("kernel.cfg", "passoang 45 escoitava 2 escala 0.5 a 1 piramide 1 circulo 21 quadrado 19");
    std::filesystem::create_directory("fotos");
    for (int i = 0; i < 2; ++i) foto("fotos/f" + std::to_string(i) + ".pgm", i);
  }

  static cv::Mat_<unsigned char> imagem(int i) {
    cv::Mat_<unsigned char> img = fotoDeGraos();
    img += 5 * i;
    return img;
  }

  static void foto(const std::string& nome, int i) { grava(nome, pgm(imagem(i))); }

  // Of the classic method, with thresholds that leave the three grains.
  static std::vector<std::string> comando(const std::vector<std::string>& mais = {"fotos"}) {
    std::vector<std::string> v = {"--metodo", "classico",        "-c",        "0.1",
                                  "-f",       "default 0.2 0.1", "kernel.cfg"};
    v.insert(v.end(), mais.begin(), mais.end());
    return v;
  }
};

inline std::size_t linhas(const std::string& texto) {
  return static_cast<std::size_t>(std::count(texto.begin(), texto.end(), '\n'));
}
