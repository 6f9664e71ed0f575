#include "sugere/vistas.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

#include "apoio/figuras.h"

namespace {

cv::Mat_<unsigned char> degraus(int rows, int cols) {
  cv::Mat_<unsigned char> img(rows, cols);
  for (int l = 0; l < rows; ++l) {
    for (int c = 0; c < cols; ++c) img(l, c) = static_cast<unsigned char>((l * 31 + c * 17) % 251);
  }
  return img;
}

}  // namespace

TEST(Espalhados, DoPrimeiroAoUltimo) {
  EXPECT_EQ(sugere::espalhados(100, 4), (std::vector<std::size_t>{0, 33, 66, 99}));
  EXPECT_EQ(sugere::espalhados(3, 8), (std::vector<std::size_t>{0, 1, 2}));
  EXPECT_EQ(sugere::espalhados(9, 1), std::vector<std::size_t>{4});
  EXPECT_TRUE(sugere::espalhados(0, 8).empty());
}

TEST(Reduzida, MediaArredondadaDosPixels) {
  const cv::Mat_<unsigned char> img = (cv::Mat_<unsigned char>(3, 5) << 0, 1, 10, 20, 9,  //
                                       2, 3, 30, 41, 9,                                   //
                                       9, 9, 9, 9, 9);
  const cv::Mat_<unsigned char> r = sugere::reduzida(img, 2);
  EXPECT_TRUE(iguais(r, cv::Mat_<unsigned char>((cv::Mat_<unsigned char>(1, 2) << 2, 25))));
  EXPECT_TRUE(iguais(sugere::reduzida(img, 1), img));
}

TEST(Vistas, FotografiaPequenaInteira) {
  const auto img = degraus(40, 60);
  const auto v = sugere::vistas(img, 3, 2400);
  ASSERT_EQ(v.size(), 1U);
  EXPECT_TRUE(iguais(v[0].cinza, img));
  EXPECT_NE(v[0].cinza.data, img.data);
  EXPECT_EQ(v[0].foto, 3U);
  EXPECT_TRUE(sugere::mostra(v[0], 35));
  EXPECT_TRUE(sugere::vistas({}, 0, 1000).empty());
}

TEST(Vistas, FotografiaGrandeEmPartesEReduzida) {
  const auto img = degraus(1500, 2000);
  std::set<std::pair<int, int>> lugares;
  for (std::size_t numero = 0; numero < 6; ++numero) {
    const auto v = sugere::vistas(img, numero, 4e5);
    ASSERT_EQ(v.size(), 3U);  // two parts of 100,000 pixels or so, and the whole
    double pixels = 0;
    for (const sugere::VISTA& x : v) {
      pixels += static_cast<double>(x.cinza.total());
      if (x.reducao > 1) continue;
      const cv::Rect onde(x.coluna, x.linha, x.cinza.cols, x.cinza.rows);
      EXPECT_TRUE(iguais(x.cinza, cv::Mat_<unsigned char>(img(onde))));
      lugares.emplace(x.linha, x.coluna);
    }
    EXPECT_LE(pixels, 4e5);
    EXPECT_GT(pixels, 3e5);
    EXPECT_TRUE(iguais(v[2].cinza, sugere::reduzida(img, v[2].reducao)));
  }
  EXPECT_EQ(lugares.size(), 12U);
}

TEST(Vistas, CadaTamanhoSeVeEmAlguma) {
  const auto v = sugere::vistas(degraus(3000, 1000), 0, 2e5);
  for (double d = 4; d < 330; d *= 1.1) {
    EXPECT_TRUE(std::any_of(v.begin(), v.end(), [&](const sugere::VISTA& x) {
      return sugere::mostra(x, d);
    })) << d;
  }
}

TEST(Ampliada, OCentroDoPixelFicaNoLugar) {
  const refine::FIGURA f = sugere::ampliada({'e', 0, 10, 8, 4, 30}, 4);
  EXPECT_EQ(f.l, 1.5);
  EXPECT_EQ(f.c, 41.5);
  EXPECT_EQ(f.d1, 32);
  EXPECT_EQ(f.d2, 16);
  EXPECT_EQ(f.ang, 30);
}
