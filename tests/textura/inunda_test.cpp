#include "textura/inunda.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "textura/instancias.h"

namespace {

using RELEVO = cv::Mat_<unsigned char>;

// A row of heights, a digit each, times 25.
RELEVO linha(const std::string& alturas) {
  RELEVO r(1, static_cast<int>(alturas.size()));
  for (int c = 0; c < r.cols; ++c) {
    r(0, c) = static_cast<unsigned char>(25 * (alturas[static_cast<std::size_t>(c)] - '0'));
  }
  return r;
}

std::string morros(const std::string& alturas, const textura::CORTE& corte = {90, 60}) {
  std::string s;
  for (const int m : textura::inunda(linha(alturas), corte)) s += static_cast<char>('0' + m);
  return s;
}

TEST(Inunda, CadaMorroVaiAteOFundoDosVales) {
  EXPECT_EQ(morros("0149410259520"), "0111110222220");
  EXPECT_EQ(morros("000000"), "000000");
  EXPECT_EQ(morros("99999"), "11111");
}

TEST(Inunda, MorrosComPoucoValeEntreElesSaoUm) {
  EXPECT_EQ(morros("0297920"), "0111110");
  EXPECT_EQ(morros("0295920"), "0111220");
  EXPECT_EQ(morros("0295920", {90, 101}), "0111110");
}

TEST(Inunda, MorroBaixoNaoConta) {
  EXPECT_EQ(morros("0120249"), "0000111");
  EXPECT_EQ(morros("0232030"), "0000000");
}

TEST(Inunda, MetadesDeUmPlanaltoVaoAoMaisPerto) {
  EXPECT_EQ(morros("9333333339"), "1111122222");
}

// Every hill is in one piece, from a top no lower than asked for, and what is above 0 around it
// belongs to a hill or to one too low.
TEST(Inunda, MorrosSorteadosSaoInteiros) {
  std::mt19937 sorteio(7);
  for (int vez = 0; vez < 40; ++vez) {
    RELEVO r(23, 31);
    for (unsigned char& v : r) v = static_cast<unsigned char>(sorteio() % 4 * 60);
    const textura::CORTE corte{90, static_cast<int>(sorteio() % 120)};
    const cv::Mat_<int> m = textura::inunda(r, corte);
    double maior = 0;
    cv::minMaxLoc(m, nullptr, &maior);
    for (int k = 1; k <= static_cast<int>(maior); ++k) {
      std::vector<cv::Point> pilha;
      std::set<std::pair<int, int>> vistos;
      int quantos = 0;
      int pico = 0;
      for (int l = 0; l < m.rows; ++l) {
        for (int c = 0; c < m.cols; ++c) {
          if (m(l, c) != k) continue;
          ASSERT_GT(r(l, c), 0);
          ++quantos;
          pico = std::max<int>(pico, r(l, c));
          if (pilha.empty() && vistos.empty()) {
            pilha.emplace_back(c, l);
            vistos.emplace(l, c);
          }
        }
      }
      while (!pilha.empty()) {
        const cv::Point p = pilha.back();
        pilha.pop_back();
        for (const cv::Point d :
             {cv::Point(0, 1), cv::Point(1, 0), cv::Point(0, -1), cv::Point(-1, 0)}) {
          const cv::Point q = p + d;
          const bool dentro = q.x >= 0 && q.y >= 0 && q.x < m.cols && q.y < m.rows;
          if (dentro && m(q) == k && vistos.emplace(q.y, q.x).second) pilha.push_back(q);
        }
      }
      EXPECT_EQ(static_cast<int>(vistos.size()), quantos);
      EXPECT_GE(pico, corte.menorPico);
    }
  }
}

TEST(Instancias, AElipseTemOsEixosDaFigura) {
  const refine::FIGURA certa{'e', 40.3, 52.6, 60, 32, 25};
  const refine::EIXOS e(certa);
  cv::Mat_<int> rotulos(90, 110, 0);
  for (int l = 0; l < rotulos.rows; ++l) {
    for (int c = 0; c < rotulos.cols; ++c) rotulos(l, c) = contem(certa, e, l, c) ? 1 : 0;
  }
  const cv::Mat_<unsigned char> cheio(rotulos.size(), 200);
  const auto somas = textura::soma(rotulos, {cheio, cheio, cheio});
  ASSERT_EQ(somas.size(), 1U);
  const refine::FIGURA f = textura::elipse(somas[0]);
  EXPECT_EQ(f.forma, 'e');
  EXPECT_NEAR(f.l, certa.l, 0.05);
  EXPECT_NEAR(f.c, certa.c, 0.05);
  EXPECT_NEAR(f.d1, certa.d1, 0.4);
  EXPECT_NEAR(f.d2, certa.d2, 0.4);
  EXPECT_NEAR(f.ang, certa.ang, 0.5);
  const auto pares = textura::pares(rotulos, somas, rotulos, somas);
  EXPECT_EQ(pares[0].outro, 1);
  EXPECT_EQ(pares[0].parte, 1);
}

}  // namespace
