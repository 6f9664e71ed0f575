#include "refine/contorno/vizinhos.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace refine {

namespace {

FIGURA vizinhaSorteada(std::mt19937& g) {
  std::uniform_real_distribution<double> lugar(-150, 300), tamanho(3, 90), ang(0, 180);
  const char forma = "cqre"[g() % 4];
  FIGURA f{forma, lugar(g), lugar(g), tamanho(g), tamanho(g), ang(g)};
  if (forma == 'c' || forma == 'q') f.d2 = f.d1;
  return f;
}

bool caixasSeTocam(const FIGURA& a, const FIGURA& b) {
  const CAIXA x = meiaCaixa(a), y = meiaCaixa(b);
  return std::fabs(a.l - b.l) <= x.altura + y.altura &&
         std::fabs(a.c - b.c) <= x.largura + y.largura;
}

}  // namespace

TEST(Vizinhos, AchaTodosCujasCaixasSeTocam) {
  std::mt19937 g(4);
  for (int caso = 0; caso < 20; ++caso) {
    VIZINHOS v(caso % 2 == 0 ? 32 : 7.5);
    for (std::uint32_t k = 0; k < 60; ++k) EXPECT_EQ(v.poe(vizinhaSorteada(g)), k);
    for (std::size_t k = 0; k < 60; k += 7) v.tira(k);
    std::vector<std::uint32_t> perto;
    std::size_t achados = 0;
    for (int i = 0; i < 30; ++i) {
      const FIGURA f = vizinhaSorteada(g);
      v.perto(f, perto);
      EXPECT_TRUE(std::is_sorted(perto.begin(), perto.end()));
      EXPECT_EQ(std::adjacent_find(perto.begin(), perto.end()), perto.end());
      achados += perto.size();
      for (std::uint32_t k = 0; k < 60; ++k) {
        const bool achou = std::binary_search(perto.begin(), perto.end(), k);
        if (k % 7 == 0) {
          EXPECT_FALSE(achou) << "taken back";
        } else if (caixasSeTocam(f, v.figuras[k])) {
          EXPECT_TRUE(achou);
        }
      }
    }
    EXPECT_LT(achados, 30 * 51U * 3 / 4);  // not merely all of them
  }
}

TEST(Vizinhos, NaoAchaOsDistantes) {
  VIZINHOS v(32);
  v.poe({'c', 10, 10, 8, 8, 0});
  std::vector<std::uint32_t> perto = {5};
  v.perto({'c', 200, 10, 8, 8, 0}, perto);
  EXPECT_TRUE(perto.empty());
}

TEST(Vizinhos, PontosEspalhadosPorDentro) {
  std::mt19937 g(5);
  std::vector<PONTO_NA_FOTO> pontos;
  for (int caso = 0; caso < 100; ++caso) {
    const FIGURA f = vizinhaSorteada(g);
    const EIXOS e(f);
    const FIGURA metade{f.forma, f.l, f.c, f.d1 / 2, f.d2 / 2, f.ang};
    pontosDentro(f, pontos);
    ASSERT_EQ(pontos.size(), 64U);
    double l = 0, c = 0;
    int noMeio = 0;
    int quartos[4] = {};
    for (const PONTO_NA_FOTO& p : pontos) {
      EXPECT_TRUE(contem(f, e, p.l, p.c));
      l += p.l / 64;
      c += p.c / 64;
      noMeio += contem(metade, e, p.l, p.c) ? 1 : 0;
      ++quartos[(e.u(p.l, p.c) > 0 ? 1 : 0) + (e.v(p.l, p.c) > 0 ? 2 : 0)];
    }
    EXPECT_NEAR(l, f.l, 1e-9);
    EXPECT_NEAR(c, f.c, 1e-9);
    EXPECT_EQ(noMeio, 16);  // a quarter of the area
    for (const int n : quartos) EXPECT_EQ(n, 16);
  }
}

}  // namespace refine
