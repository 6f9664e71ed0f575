#include "pim/gruda.h"

#include <random>

#include "fabrica.h"

using CINZA = cv::Mat_<unsigned char>;

namespace {

// Pixel of `a` at (l, c) of the joined image when its corner stands at (topo, esquerda).
int pixelDe(const CINZA& a, int l, int c, int topo, int esquerda) {
  const int y = l - topo;
  const int x = c - esquerda;
  return y >= 0 && y < a.rows && x >= 0 && x < a.cols ? a(y, x) : -1;
}

CINZA grudaHLento(const CINZA& a, const CINZA& b, int espaco, unsigned char cor) {
  CINZA junta(std::max(a.rows, b.rows), a.cols + espaco + b.cols);
  for (int l = 0; l < junta.rows; ++l) {
    for (int c = 0; c < junta.cols; ++c) {
      const int da = pixelDe(a, l, c, (junta.rows - a.rows) / 2, 0);
      const int db = pixelDe(b, l, c, (junta.rows - b.rows) / 2, a.cols + espaco);
      junta(l, c) = static_cast<unsigned char>(da >= 0 ? da : db >= 0 ? db : cor);
    }
  }
  return junta;
}

CINZA transposta(const CINZA& a) {
  CINZA t;
  cv::transpose(a, t);
  return t;
}

}  // namespace

TEST(GrudaH, PoeASegundaADireitaDepoisDaFaixa) {
  const CINZA a(2, 1, 10);
  const CINZA b(2, 2, 20);
  const CINZA certa = (CINZA(2, 4) << 10, 0, 20, 20, 10, 0, 20, 20);
  EXPECT_EQ(maiorDiferenca(pim::grudaH(a, b, 1, 0), certa), 0);
}

TEST(GrudaV, PoeASegundaAbaixoDepoisDaFaixa) {
  const CINZA a(1, 2, 10);
  const CINZA b(2, 2, 20);
  const CINZA certa = (CINZA(4, 2) << 10, 10, 0, 0, 20, 20, 20, 20);
  EXPECT_EQ(maiorDiferenca(pim::grudaV(a, b, 1, 0), certa), 0);
}

TEST(Gruda, MargemImparEhMenorAntesDoQueDepois) {
  const CINZA junta = pim::grudaH(CINZA(4, 1, 9), CINZA(1, 1, 5), 0, 7);
  EXPECT_EQ(maiorDiferenca(junta.col(1).clone(), (CINZA(4, 1) << 7, 5, 7, 7)), 0);
}

TEST(Gruda, VaziaDaAOutra) {
  const CINZA a = cenaCinza(3, 4);
  EXPECT_EQ(maiorDiferenca(pim::grudaH(CINZA(), a, 1, 0), a), 0);
  EXPECT_EQ(maiorDiferenca(pim::grudaH(a, CINZA(), 1, 0), a), 0);
  EXPECT_EQ(maiorDiferenca(pim::grudaV(CINZA(), a, 1, 0), a), 0);
  EXPECT_EQ(maiorDiferenca(pim::grudaV(a, CINZA(), 1, 0), a), 0);
  EXPECT_TRUE(pim::grudaV(CINZA(), CINZA(), 1, 0).empty());
}

TEST(Gruda, OperandosFicamIntactos) {
  const CINZA a = cenaCinza(3, 4);
  CINZA junta = pim::grudaV(a, cenaCinza(5, 2), 1, 0);
  junta.setTo(77);
  EXPECT_EQ(maiorDiferenca(a, cenaCinza(3, 4)), 0);
}

TEST(Gruda, IgualAJuncaoIngenuaEAVerticalEhATransposta) {
  SCOPED_TRACE("seed 12");
  std::mt19937 sorteio(12);
  const auto lado = [&] { return static_cast<int>(sorteio() % 9) + 1; };
  for (unsigned vez = 0; vez < 200; ++vez) {
    const CINZA a = aleatoria(lado(), lado(), CV_8UC1, vez);
    const CINZA b = aleatoria(lado(), lado(), CV_8UC1, vez + 1000);
    const int espaco = static_cast<int>(sorteio() % 4);
    const auto cor = static_cast<unsigned char>(sorteio());
    const CINZA certa = grudaHLento(a, b, espaco, cor);
    ASSERT_EQ(maiorDiferenca(pim::grudaH(a, b, espaco, cor), certa), 0);
    const CINZA vertical = pim::grudaV(transposta(a), transposta(b), espaco, cor);
    ASSERT_EQ(maiorDiferenca(transposta(vertical), certa), 0);
  }
}
