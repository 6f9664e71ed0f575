#include "textura/mapa.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

using FOTO = cv::Mat_<unsigned char>;

FOTO sorteada(int rows, int cols) {
  std::mt19937 sorteio(3);
  FOTO f(rows, cols);
  for (unsigned char& v : f) v = static_cast<unsigned char>(60 + sorteio() % 130);
  return f;
}

int maiorDiferenca(const FOTO& a, const FOTO& b) {
  cv::Mat d;
  cv::absdiff(a, b, d);
  double maior = 0;
  cv::minMaxLoc(d, nullptr, &maior);
  return static_cast<int>(maior);
}

TEST(Mapa, AsEmendasNaoSeVeemENemOsFios) {
  const textura::REDE rede = textura::leRede(textura::arquivoDosPesos("cenas"));
  const FOTO foto = sorteada(96, 1400);  // two tiles
  const textura::TOM t = textura::tom(foto);
  const auto um = textura::mapeia({foto}, t, rede, 1);
  const auto dois = textura::mapeia({foto}, t, rede, 2);
  EXPECT_EQ(maiorDiferenca(um[0].dentro, dois[0].dentro), 0);
  EXPECT_EQ(maiorDiferenca(um[0].distancia, dois[0].distancia), 0);
  // A piece that is one tile, around the place where the others meet.
  const cv::Rect pedaco(800, 0, 600, 96);
  const cv::Rect miolo(160, 0, 440, 96);
  const auto so = textura::mapeia({foto(pedaco).clone()}, t, rede, 1);
  const FOTO aqui = um[0].dentro(pedaco)(miolo).clone();
  EXPECT_LE(maiorDiferenca(aqui, so[0].dentro(miolo).clone()), 1);
  double menor = 0;
  double maior = 0;
  cv::minMaxLoc(aqui, &menor, &maior);
  EXPECT_GT(maior - menor, 5);  // or the comparison would tell nothing
}

TEST(Mapa, FotografiasPequenasELisasServem) {
  const textura::REDE rede = textura::leRede(textura::arquivoDosPesos("cenas"));
  for (const cv::Size s : {cv::Size(1, 1), cv::Size(17, 3), cv::Size(5, 40)}) {
    const FOTO lisa(s, 77);
    const auto m = textura::mapeia({lisa}, textura::tom(lisa), rede, 1);
    EXPECT_EQ(m[0].limite.size(), s);
  }
}

TEST(Mapa, OTomEhMediaEDesvio) {
  FOTO f(1, 4);
  f << 10, 10, 30, 30;
  EXPECT_DOUBLE_EQ(textura::tom(f).media, 20);
  EXPECT_DOUBLE_EQ(textura::tom(f).desvio, 10);
}

}  // namespace
