#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "apoio/detector.h"
#include "apoio/figuras.h"
#include "apoio/pasta.h"
#include "roda_sugere.h"

// A folder `fotos` of three photographs with dark grains.
struct Sugere : testing::Test {
  PASTA pasta;

  static cv::Mat_<unsigned char> foto() {
    cv::Mat_<unsigned char> img;
    cv::repeat(fotoDeGraos(), 2, 2, img);
    return img;
  }

  static cv::Mat_<unsigned char> negativo() {
    cv::Mat_<unsigned char> img = foto();
    for (unsigned char& p : img) p = static_cast<unsigned char>(255 - p);
    return img;
  }

  void SetUp() override {
    std::filesystem::create_directory("fotos");
    for (const char* nome : {"fotos/a.pgm", "fotos/b.pgm", "fotos/c.pgm"}) grava(nome, pgm(foto()));
  }

  static bool tem(const std::string& texto, const std::string& parte) {
    return texto.find(parte) != std::string::npos;
  }
};
