#include "refine/contorno/figura.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace refine {

namespace {

double perimetroSomado(double a, double b) {
  constexpr int n = 20000;
  double s = 0;
  for (int k = 0; k < n; ++k) {
    const double t = (k + 0.5) * 2 * std::numbers::pi / n;
    s += std::hypot(a * std::sin(t), b * std::cos(t));
  }
  return s * 2 * std::numbers::pi / n;
}

}  // namespace

TEST(Figura, VemDaDeteccao) {
  const FIGURA c = figura({0.5F, 'c', 7, 9, 12, 99, 33});
  EXPECT_EQ(c.l, 7);
  EXPECT_EQ(c.c, 9);
  EXPECT_EQ(c.d2, 12);
  EXPECT_EQ(c.ang, 0);
  const FIGURA q = figura({0.5F, 'q', 7, 9, 12, 99, 33});
  EXPECT_EQ(q.d2, 12);
  EXPECT_EQ(q.ang, 33);
  const FIGURA r = figura({0.5F, 'r', 7, 9, 12, 99, 33});
  EXPECT_EQ(r.d2, 99);
  EXPECT_EQ(r.ang, 33);
}

TEST(Figura, AreaEPerimetro) {
  EXPECT_DOUBLE_EQ(area({'c', 0, 0, 10, 10, 0}), 25 * std::numbers::pi);
  EXPECT_DOUBLE_EQ(area({'e', 0, 0, 10, 4, 30}), 10 * std::numbers::pi);
  EXPECT_DOUBLE_EQ(area({'q', 0, 0, 7, 7, 30}), 49);
  EXPECT_DOUBLE_EQ(area({'r', 0, 0, 7, 3, 30}), 21);
  EXPECT_DOUBLE_EQ(perimetro({'q', 0, 0, 7, 7, 30}), 28);
  EXPECT_DOUBLE_EQ(perimetro({'r', 0, 0, 7, 3, 30}), 20);
  EXPECT_NEAR(perimetro({'c', 0, 0, 10, 10, 0}), 10 * std::numbers::pi, 1e-12);
  for (const double razao : {1.0, 1.3, 2.0, 3.0, 4.0, 5.0}) {
    const double certo = perimetroSomado(10 * razao, 10);
    EXPECT_NEAR(perimetro({'e', 0, 0, 20 * razao, 20, 0}), certo, 1e-6 * certo) << razao;
  }
  EXPECT_DOUBLE_EQ(menorMetade({'r', 0, 0, 7, 3, 30}), 1.5);
  EXPECT_DOUBLE_EQ(alongamento({'r', 0, 0, 3, 7.5, 30}), 2.5);
}

TEST(Figura, NormalEhAMesmaForma) {
  const FIGURA r = normal({'r', 1, 2, 3, 8, 170});
  EXPECT_EQ(r.d1, 8);
  EXPECT_EQ(r.d2, 3);
  EXPECT_DOUBLE_EQ(r.ang, 80);
  EXPECT_DOUBLE_EQ(normal({'e', 0, 0, 8, 3, -10}).ang, 170);
  EXPECT_DOUBLE_EQ(normal({'e', 0, 0, 8, 3, 180}).ang, 0);
  EXPECT_DOUBLE_EQ(normal({'q', 0, 0, 8, 8, 100}).ang, 10);
  EXPECT_DOUBLE_EQ(normal({'q', 0, 0, 8, 8, -10}).ang, 80);
  EXPECT_EQ(normal({'c', 0, 0, 8, 8, 77}).ang, 0);
  for (const char forma : {'c', 'q', 'r', 'e'}) {
    const double d2 = forma == 'r' || forma == 'e' ? 13 : 8;
    for (double ang = -400; ang <= 400; ang += 37) {
      const FIGURA f{forma, 3.3, -2.2, 8, d2, ang};
      const FIGURA n = normal(f);
      EXPECT_GE(n.d1, n.d2);
      EXPECT_GE(n.ang, 0);
      EXPECT_LT(n.ang, forma == 'q' ? 90 : 180);
      EXPECT_GT(interseccaoSobreUniao(f, n), 0.999) << forma << ' ' << ang;
    }
  }
}

TEST(Figura, ContemInclusiveOContorno) {
  const FIGURA r{'r', 10, 20, 8, 4, 90};  // d1 along the rows
  const EIXOS e(r);
  EXPECT_TRUE(contem(r, e, 14, 22));
  EXPECT_FALSE(contem(r, e, 14.001, 22));
  EXPECT_FALSE(contem(r, e, 14, 22.001));
  // Positive angles turn clockwise: the first axis of 45 degrees points down and right.
  const FIGURA x{'e', 0, 0, 10, 2, 45};
  EXPECT_TRUE(contem(x, EIXOS(x), 3, 3));
  EXPECT_FALSE(contem(x, EIXOS(x), -3, 3));
  const FIGURA c{'c', 0, 0, 10, 10, 0};
  EXPECT_TRUE(contem(c, EIXOS(c), 3, 4));
  EXPECT_FALSE(contem(c, EIXOS(c), 3, 4.01));
}

TEST(Figura, MeiaCaixaEncosta) {
  for (const char forma : {'c', 'q', 'r', 'e'}) {
    const double d2 = forma == 'r' || forma == 'e' ? 11 : 30;
    for (double ang = 0; ang < 180; ang += 17) {
      const FIGURA f{forma, 0, 0, 30, d2, ang};
      const DIRECAO d = direcao(ang);
      double altura = 0, largura = 0;
      for (int k = 0; k < 3600; ++k) {
        const DIRECAO t = direcao(k * 0.1);
        // The corners of straight shapes lie at odd multiples of 45 degrees.
        const bool reta = forma == 'q' || forma == 'r';
        const double u = 15 * (reta ? std::copysign(1.0, t.cosseno) : t.cosseno);
        const double v = d2 / 2 * (reta ? std::copysign(1.0, t.seno) : t.seno);
        altura = std::max(altura, u * d.seno + v * d.cosseno);
        largura = std::max(largura, u * d.cosseno - v * d.seno);
      }
      const CAIXA caixa = meiaCaixa(f);
      EXPECT_NEAR(caixa.altura, altura, 1e-4) << forma << ' ' << ang;
      EXPECT_NEAR(caixa.largura, largura, 1e-4) << forma << ' ' << ang;
    }
  }
}

TEST(Figura, InterseccaoSobreUniaoDosCasosFechados) {
  const FIGURA q{'q', 0, 0, 10, 10, 0};
  EXPECT_EQ(interseccaoSobreUniao(q, q), 1);
  EXPECT_EQ(interseccaoSobreUniao(q, {'q', 0, 30, 10, 10, 0}), 0);
  EXPECT_NEAR(interseccaoSobreUniao(q, {'q', 0, 5, 10, 10, 0}), 1.0 / 3, 0.02);
  EXPECT_NEAR(interseccaoSobreUniao(q, {'r', 0, 0, 10, 2.5, 90}), 0.25, 0.02);
  EXPECT_NEAR(interseccaoSobreUniao(q, {'c', 0, 0, 10, 10, 0}), std::numbers::pi / 4, 0.02);
  // Discs of radius 1 at distance 1.
  const double lente = 2 * std::numbers::pi / 3 - std::sqrt(3.0) / 2;
  const double certo = lente / (2 * std::numbers::pi - lente);
  EXPECT_NEAR(interseccaoSobreUniao({'c', 0, 0, 20, 20, 0}, {'c', 6, 8, 20, 20, 0}), certo, 0.02);
}

}  // namespace refine
