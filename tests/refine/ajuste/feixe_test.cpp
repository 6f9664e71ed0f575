#include "refine/ajuste/feixe.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

using namespace refine;

namespace {

constexpr std::size_t amostras = 48;

// Lines of reading in a picture of random greys, and what each set of instructions makes of them.
struct CASO {
  int colunas = 90;
  std::vector<float> grey, l, c, dl, dc;

  explicit CASO(std::mt19937& g) : grey(static_cast<std::size_t>(70 * colunas)) {
    std::uniform_real_distribution<float> um(0, 1);
    for (float& x : grey) x = um(g);
    for (std::size_t i = 0; i < amostras; ++i) {
      l.push_back(20 + 20 * um(g));
      c.push_back(30 + 20 * um(g));
      const float a = 6.28F * um(g);
      dl.push_back(0.5F * std::cos(a));
      dc.push_back(0.5F * std::sin(a));
    }
  }

  std::vector<float> le(const LEITOR& leitor, int pontos) const {
    std::vector<float> v(static_cast<std::size_t>(pontos) * amostras);
    leitor.le({grey.data() + 2 * colunas, 2, colunas},
              {l.data(), c.data(), dl.data(), dc.data(), amostras}, pontos, v.data(), amostras);
    return v;
  }

  // Bilinear interpolation, one point after the other.
  float em(float y, float x) const {
    const int yi = static_cast<int>(y);
    const int xi = static_cast<int>(x);
    const float* p = grey.data() + yi * colunas + xi;
    const float* q = p + colunas;
    const float cima = p[0] + (x - static_cast<float>(xi)) * (p[1] - p[0]);
    const float baixo = q[0] + (x - static_cast<float>(xi)) * (q[1] - q[0]);
    return cima + (y - static_cast<float>(yi)) * (baixo - cima);
  }
};

struct ACHADOS {
  std::vector<float> onde = std::vector<float>(amostras);
  std::vector<float> rampa = std::vector<float>(amostras);
  std::vector<float> largura2 = std::vector<float>(amostras);
};

ACHADOS acha(const LEITOR& leitor, const std::vector<float>& greys, const BUSCA& b) {
  ACHADOS a;
  leitor.acha(greys.data(), amostras, amostras, b,
              {a.onde.data(), a.rampa.data(), a.largura2.data()});
  return a;
}

// The step of a sample's edge, found as the definition says.
int passoSimples(const std::vector<float>& greys, std::size_t i, const BUSCA& b) {
  const int meio = b.n + b.nitidez + b.vao;
  const auto rampa = [&](int k) {
    const auto em = [&](int ponto) {
      return greys[static_cast<std::size_t>(ponto) * amostras + i];
    };
    return em(meio + k + b.vao) - em(meio + k - b.vao);
  };
  int melhor = -b.n;
  float maior = -9;
  for (int k = -b.n; k <= b.n; ++k) {
    const bool basta = b.primeira > 0 && std::abs(k) < b.n && rampa(k) >= b.primeira;
    if (basta && rampa(k) >= rampa(k - 1) && rampa(k) >= rampa(k + 1)) return k;
    float v = rampa(k);
    if (b.nitidez > 0) v -= 0.5F * (rampa(k - b.nitidez) + rampa(k + b.nitidez));
    v *= b.peso[std::abs(k)];
    if (v > maior) {
      maior = v;
      melhor = k;
    }
  }
  return melhor;
}

}  // namespace

TEST(Feixe, InterpolaEntrePixels) {
  std::mt19937 g(1);
  const CASO caso(g);
  for (const LEITOR& leitor : leitores()) {
    const std::vector<float> v = caso.le(leitor, 31);
    for (std::size_t k = 0; k < 31; ++k) {
      for (std::size_t i = 0; i < amostras; ++i) {
        const float y = caso.l[i] + static_cast<float>(k) * caso.dl[i];
        const float x = caso.c[i] + static_cast<float>(k) * caso.dc[i];
        ASSERT_EQ(v[k * amostras + i], caso.em(y, x)) << leitor.nome;
      }
    }
  }
}

TEST(Feixe, AchaOPicoDoDeclive) {
  std::mt19937 g(2);
  const std::vector<float> peso = {1, 0.97F, 0.9F, 0.8F, 0.6F, 0.4F, 0.2F};
  for (int vez = 0; vez < 60; ++vez) {
    const CASO caso(g);
    const BUSCA b{6, 1 + vez % 2, vez % 3 == 0 ? 4 : 0, vez % 5 == 0 ? 0.5F : 0, peso.data()};
    const std::vector<LEITOR> todos = leitores();
    const std::vector<float> greys = caso.le(todos[0], 2 * (b.n + b.nitidez + b.vao) + 1);
    const ACHADOS primeiro = acha(todos[0], greys, b);
    for (std::size_t i = 0; i < amostras; ++i) {
      ASSERT_NEAR(primeiro.onde[i], passoSimples(greys, i, b), 0.5) << vez << ' ' << i;
      ASSERT_GT(primeiro.largura2[i], 0);
    }
    for (const LEITOR& leitor : todos) {
      const ACHADOS a = acha(leitor, greys, b);
      ASSERT_EQ(a.onde, primeiro.onde) << leitor.nome;
      ASSERT_EQ(a.rampa, primeiro.rampa) << leitor.nome;
      ASSERT_EQ(a.largura2, primeiro.largura2) << leitor.nome;
    }
  }
}

TEST(Feixe, ParabolaDaOLugarExato) {
  // Greys whose steps make a parabola with its top at a place of each sample's own.
  const std::vector<float> peso(7, 1.0F);
  const BUSCA b{6, 1, 0, 0, peso.data()};
  std::vector<float> greys(15 * amostras);
  for (std::size_t i = 0; i < amostras; ++i) {
    const double topo = 4 * (static_cast<double>(i) / amostras) - 2;
    double grey = 0;
    for (int k = 0; k < 15; ++k) {
      greys[static_cast<std::size_t>(k) * amostras + i] = static_cast<float>(grey);
      const double meio = k - 6.5 - topo;
      grey += 1 - 0.01 * (meio * meio);
    }
  }
  for (const LEITOR& leitor : leitores()) {
    const ACHADOS a = acha(leitor, greys, b);
    for (std::size_t i = 0; i < amostras; ++i) {
      ASSERT_NEAR(a.onde[i], 4 * (static_cast<double>(i) / amostras) - 2, 1e-3) << leitor.nome;
    }
  }
}
