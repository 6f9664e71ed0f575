#include "measure/contorno.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

#include "apoio/figuras.h"

using namespace measure;

namespace {

using std::numbers::pi;

refine::FIGURA figura(char letra, double d1, double d2, double ang, double l = 0, double c = 0) {
  return {letra, l, c, d1, d2, ang};
}

double areaComSinal(const std::vector<PONTO>& v) {
  double soma = 0;
  for (std::size_t i = 0; i < v.size(); ++i) {
    const PONTO& a = v[i];
    const PONTO& b = v[(i + 1) % v.size()];
    soma += a.x * b.y - b.x * a.y;
  }
  return soma / 2;
}

// Whether the point lies in the convex polygon, at least `margem` from its sides (negative: at most
// that far outside).
bool dentro(const std::vector<PONTO>& v, double x, double y, double margem) {
  for (std::size_t i = 0; i < v.size(); ++i) {
    const PONTO& a = v[i];
    const PONTO& b = v[(i + 1) % v.size()];
    const double cruz = (b.x - a.x) * (y - a.y) - (b.y - a.y) * (x - a.x);
    if (cruz < margem * std::hypot(b.x - a.x, b.y - a.y)) return false;
  }
  return true;
}

TEST(Direcao, ExataNosQuartosDeVolta) {
  const int esperados[][2] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
  for (int k = -9; k <= 9; ++k) {
    const PONTO p = direcao(90.0 * k);
    EXPECT_EQ(p.x, esperados[(k + 12) % 4][0]) << k;
    EXPECT_EQ(p.y, esperados[(k + 12) % 4][1]) << k;
  }
}

TEST(Direcao, CossenoESenoEmQualquerAngulo) {
  for (double ang = -800; ang <= 800; ang += 7.5) {
    EXPECT_NEAR(direcao(ang).x, std::cos(ang * pi / 180), 1e-13) << ang;
    EXPECT_NEAR(direcao(ang).y, std::sin(ang * pi / 180), 1e-13) << ang;
  }
}

TEST(Contorno, RetanguloTemOsQuatroCantosNoSentidoPositivo) {
  const std::vector<PONTO> v = contorno(figura('r', 20, 10, 0, 100, 200), 0.02);
  ASSERT_EQ(v.size(), 4U);
  const double esperados[][2] = {{190, 95}, {210, 95}, {210, 105}, {190, 105}};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(v[i].x, esperados[i][0]);
    EXPECT_EQ(v[i].y, esperados[i][1]);
  }
  EXPECT_EQ(areaComSinal(v), 200);
}

TEST(Contorno, OSegundoTamanhoDoQuadradoNaoConta) {
  EXPECT_DOUBLE_EQ(areaComSinal(contorno(figura('q', 10, 3, 30), 0.02)), 100);
  EXPECT_EQ(measure::meiaCaixa(figura('q', 10, 3, 0)).y, 5);
  EXPECT_EQ(measure::meiaCaixa(figura('c', 10, 3, 45)).x, 5);
  EXPECT_EQ(measure::meiaCaixa(figura('c', 10, 3, 45)).y, 5);
}

// A turn of 30 degrees clockwise on the screen brings the right end of the first axis down.
TEST(Contorno, AngulosPositivosGiramParaBaixo) {
  double direita = -1e9;
  double linha = 0;
  for (const PONTO& p : contorno(figura('e', 40, 4, 30), 0.02)) {
    if (p.x > direita) {
      direita = p.x;
      linha = p.y;
    }
  }
  EXPECT_GT(linha, 8);
}

TEST(Contorno, CurvaPassaPertoDaCordaESobreOsEixos) {
  for (const double d : {0.5, 3.0, 20.0, 500.0, 1e6}) {
    const std::vector<PONTO> v = contorno(figura('c', d, d, 0), 0.02);
    EXPECT_EQ(v.size() % 4, 0U);
    EXPECT_GE(v.size(), 16U);
    for (std::size_t i = 0; i < v.size(); ++i) {
      const PONTO& a = v[i];
      const PONTO& b = v[(i + 1) % v.size()];
      EXPECT_NEAR(std::hypot(a.x, a.y), d / 2, 1e-9 * d);
      EXPECT_LE(d / 2 - std::hypot((a.x + b.x) / 2, (a.y + b.y) / 2), 0.02 * 1.001);
    }
    EXPECT_EQ(v[0].x, d / 2);
    EXPECT_EQ(v[v.size() / 4].y, d / 2);
  }
}

TEST(Contorno, ACaixaCabeOContornoSemFolga) {
  std::mt19937 sorteio(20312);
  for (int caso = 0; caso < 400; ++caso) {
    const refine::FIGURA m =
        figura("cqre"[caso % 4], sorteia(sorteio, 1, 400) * 0.25, sorteia(sorteio, 1, 400) * 0.25,
               sorteia(sorteio, -360, 360), 7, 9);
    const PONTO meia = measure::meiaCaixa(m);
    double maiorX = 0;
    double maiorY = 0;
    for (const PONTO& p : contorno(m, 1e-6)) {
      maiorX = std::max(maiorX, std::abs(p.x - 9));
      maiorY = std::max(maiorY, std::abs(p.y - 7));
    }
    ASSERT_NEAR(maiorX, meia.x, 2e-6) << caso;
    ASSERT_NEAR(maiorY, meia.y, 2e-6) << caso;
  }
}

// The pictures of the shapes have whole half sizes; within a pixel and a half both must agree.
TEST(Contorno, CobreOsPixelsDaMascara) {
  std::mt19937 sorteio(20313);
  for (int caso = 0; caso < 200; ++caso) {
    const refine::FIGURA m = figura("cqre"[caso % 4], sorteia(sorteio, 20, 160) * 0.5,
                                    sorteia(sorteio, 20, 160) * 0.5, sorteia(sorteio, 0, 35) * 10);
    cv::Mat_<unsigned char> mascara;
    mascaraMaxLocal({0.5F, m.forma, 0, 0, m.d1, m.d2, m.ang}, mascara);
    const std::vector<PONTO> v = contorno(m, 0.02);
    for (int y = 0; y < mascara.rows; ++y) {
      for (int x = 0; x < mascara.cols; ++x) {
        const double dx = x - mascara.cols / 2;
        const double dy = y - mascara.rows / 2;
        if (mascara(y, x) == 0) {
          ASSERT_TRUE(dentro(v, dx, dy, -1.5)) << caso << ' ' << x << ' ' << y;
        } else {
          ASSERT_FALSE(dentro(v, dx, dy, 1.5)) << caso << ' ' << x << ' ' << y;
        }
      }
    }
  }
}

TEST(Aprumada, MultiplosDe90EQualquerCirculo) {
  EXPECT_TRUE(aprumada(figura('r', 9, 4, 0)));
  EXPECT_TRUE(aprumada(figura('e', 9, 4, 90)));
  EXPECT_TRUE(aprumada(figura('q', 9, 4, -180)));
  EXPECT_TRUE(aprumada(figura('c', 9, 4, 33)));
  EXPECT_FALSE(aprumada(figura('q', 9, 4, 45)));
  EXPECT_FALSE(aprumada(figura('e', 9, 4, 89)));
}

}  // namespace
