#include "sugere/sugere.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

using FOTO = cv::Mat_<unsigned char>;

// Discs of 18 and 36 pixels on noisy ground, apart from each other.
FOTO discos(int rows, int cols, int grao, int chao, int semente) {
  std::mt19937 sorteio(static_cast<unsigned>(semente));
  std::uniform_int_distribution<int> ruido(-3, 3);
  FOTO img(rows, cols);
  for (int l = 0; l < rows; ++l) {
    for (int c = 0; c < cols; ++c) {
      const int raio = (l / 60 + c / 60) % 2 == 0 ? 9 : 18;
      const double longe = std::hypot(l % 60 - 29.5, c % 60 - 29.5);
      const double dentro = std::min(std::max(raio + 0.5 - longe, 0.0), 1.0);
      const double tom = chao + (grao - chao) * dentro + ruido(sorteio);
      img(l, c) = static_cast<unsigned char>(tom);
    }
  }
  return img;
}

sugere::ESCOLHA escolhaPara(const std::vector<FOTO>& fotos, std::optional<bool> inverte = {}) {
  return sugere::sugere(fotos.size(), [&](std::size_t i) { return fotos[i]; }, {inverte, {}, 1})
      .escolha;
}

}  // namespace

TEST(Sugere, DiscosEscurosEClaros) {
  for (const bool claros : {false, true}) {
    const auto e = escolhaPara({discos(240, 300, claros ? 190 : 60, claros ? 70 : 180, 1)});
    EXPECT_FALSE(e.geral);
    EXPECT_EQ(e.inverte, claros);
    EXPECT_GT(e.parte, 0.8);
    EXPECT_NEAR(e.menor, 18, 2);
    EXPECT_NEAR(e.maior, 36, 2);
    ASSERT_FALSE(e.linhas.empty());
    EXPECT_EQ(e.linhas[0].forma, 'c');
    EXPECT_EQ(e.familias[0].forma, 'c');
  }
}

TEST(Sugere, PolaridadeDita) {
  const auto img = discos(180, 180, 60, 180, 2);
  EXPECT_TRUE(escolhaPara({img}, true).inverte);
  EXPECT_FALSE(escolhaPara({img}, false).inverte);
}

TEST(Sugere, QuemDestoaEhApontado) {
  const auto e = escolhaPara(
      {discos(180, 240, 60, 180, 3), discos(180, 240, 60, 180, 4), discos(180, 240, 200, 80, 5)});
  EXPECT_FALSE(e.inverte);
  EXPECT_FALSE(sugere::destoa(e, e.fotos[0]));
  EXPECT_TRUE(sugere::destoa(e, e.fotos[2]));
}

TEST(Sugere, FotografiasGrandesEmPartes) {
  const auto s = sugere::sugere(
      4, [](std::size_t i) { return discos(660, 780, 60, 180, static_cast<int>(i)); },
      {false, {}, 2});
  EXPECT_GT(s.olhadas.size(), 4U);
  EXPECT_NEAR(s.escolha.maior, 36, 3);
  for (const auto& p : s.escolha.fotos) EXPECT_NEAR(p.quantos, 11 * 13, 50);
}

TEST(Sugere, SemGraosGeral) {
  for (const FOTO& img : {FOTO(), FOTO(1, 1, static_cast<unsigned char>(7)),
                          FOTO(200, 3, static_cast<unsigned char>(7)),
                          FOTO(64, 80, static_cast<unsigned char>(128))}) {
    EXPECT_TRUE(escolhaPara({img}).geral) << img.size();
  }
  EXPECT_TRUE(escolhaPara({}).geral);
}

TEST(Sugere, OQueOLeitorLancaChega) {
  EXPECT_THROW(sugere::sugere(1, [](std::size_t) -> FOTO { throw 5; }, {}), int);
}
