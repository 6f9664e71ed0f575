#include "refine/ajuste/molde.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <random>

#include "refine/ajuste/ajuste.h"

namespace refine {

namespace {

// A step between two slopes of grey under a bell, by summing over the bell.
double degrauSombreado(const MOLDE& m, double t) {
  double s = 0;
  double w = 0;
  for (double x = -8; x <= 8; x += 0.001) {
    const double u = t - m.onde - m.sigma * x;
    const double peso = std::exp(-x * x / 2);
    s += peso * (u < 0 ? m.dentro + m.decliveDentro * u : m.fora + m.decliveFora * u);
    w += peso;
  }
  return s / w;
}

constexpr std::size_t quantos = 48;

// Profiles of `grey(t, i)`, t pixels outward from the contour, and edges to them that were not
// looked for.
template <class GREY>
PERFIS perfisDe(GREY grey, std::vector<BORDA>& bordas) {
  PERFIS p;
  p.meio = 20;
  p.salto = quantos;
  for (int k = -p.meio; k <= p.meio; ++k) {
    for (std::size_t i = 0; i < quantos; ++i) {
      p.greys.push_back(static_cast<float>(grey(k * p.passo, i)));
    }
  }
  bordas.assign(quantos, {});
  for (BORDA& b : bordas) b.visivel = b.ha = true;
  return p;
}

const std::vector<double> iguais(quantos, 1.0);
const JANELA janela{5, 5};

MOLDE inicio() {
  MOLDE m;
  m.sigma = 1;
  return m;
}

}  // namespace

TEST(Molde, GreyESeuDeclive) {
  const MOLDE m{0.3, 1.4, 0.2, 0.7, 0.02, -0.01, 0};
  for (double t = -5; t <= 5; t += 0.37) {
    EXPECT_NEAR(m.em(t), degrauSombreado(m, t), 2e-4) << t;
    EXPECT_NEAR(m.decliveEm(t), (m.em(t + 1e-4) - m.em(t - 1e-4)) / 2e-4, 1e-3) << t;
  }
}

// Where a grain gets paler toward its rim the steepest place lies further in; the mould doesn't.
TEST(Molde, SeparaSombreadoDeBorda) {
  for (const double declive : {0.0, 0.02, 0.05}) {
    for (const double sigma : {0.9, 1.3, 2.0}) {
      const MOLDE certo{0.4, sigma, 0.3, 0.7, declive, 0, 0};
      std::vector<BORDA> bordas;
      const PERFIS p =
          perfisDe([&](double t, std::size_t) { return degrauSombreado(certo, t); }, bordas);
      const std::optional<MOLDE> m = molda(p, iguais, janela, inicio());
      ASSERT_TRUE(m.has_value());
      EXPECT_NEAR(m->onde, 0.4, 0.02) << declive << ' ' << sigma;
      EXPECT_NEAR(m->sigma, sigma, 0.05);
      EXPECT_NEAR(m->decliveDentro, declive, 0.006);
      EXPECT_LT(m->erro, 0.1);
    }
  }
}

TEST(Molde, SemDegrauNaoHaMolde) {
  std::vector<BORDA> bordas;
  const auto com = [&](double dentro, double fora) {
    return perfisDe([&](double t, std::size_t) { return t < 0 ? dentro : fora; }, bordas);
  };
  EXPECT_FALSE(molda(com(0.5, 0.5), iguais, janela, inicio()).has_value());
  EXPECT_FALSE(molda(com(0.7, 0.4), iguais, janela, inicio()).has_value());
  EXPECT_TRUE(molda(com(0.4, 0.7), iguais, janela, inicio()).has_value());
  const std::vector<double> nenhum(quantos, 0.0);
  EXPECT_FALSE(molda(com(0.4, 0.7), nenhum, janela, inicio()).has_value());
}

// Each profile with its own light, contrast and place.
TEST(Molde, DeslocaCadaPerfil) {
  const auto lugar = [](std::size_t i) { return 0.6 * std::sin(static_cast<double>(i)); };
  std::vector<BORDA> bordas;
  const PERFIS p = perfisDe(
      [&](double t, std::size_t i) {
        const double claro = 0.05 * std::cos(3.0 * static_cast<double>(i));
        const double forte = 0.4 + 0.1 * std::cos(7.0 * static_cast<double>(i));
        return 0.3 + claro + forte * 0.5 * std::erfc(-(t - lugar(i)) / (1.3 * std::sqrt(2.0)));
      },
      bordas);
  const std::optional<MOLDE> m = molda(p, iguais, janela, inicio());
  ASSERT_TRUE(m.has_value());
  std::vector<double> onde;
  deslocaPorMolde(p, *m, bordas, onde);
  for (std::size_t i = 0; i < quantos; ++i) EXPECT_NEAR(onde[i], lugar(i), 0.08) << i;
}

// Far from the contour the matching begins at the peak that was found.
TEST(Molde, ComecaNoPicoQuandoLonge) {
  MOLDE m{0, 1.2, 0.3, 0.7, 0, 0, 0};
  MOLDE longe = m;
  longe.onde = 3.3;
  std::vector<BORDA> bordas;
  const PERFIS p = perfisDe([&](double t, std::size_t) { return longe.em(t); }, bordas);
  for (BORDA& b : bordas) b.desvio = 3.1F;
  bordas[5].ha = false;
  std::vector<double> onde;
  deslocaPorMolde(p, m, bordas, onde);
  EXPECT_NEAR(onde[0], 3.3, 0.05);
  EXPECT_NEAR(onde[5], 3.1, 1e-6);
}

TEST(Molde, ErroCresceComORuido) {
  std::mt19937 g(3);
  double antes = 0;
  for (const double ruido : {0.005, 0.02, 0.08}) {
    std::normal_distribution<double> n(0, ruido);
    const MOLDE certo{0, 1.2, 0.3, 0.7, 0, 0, 0};
    std::vector<BORDA> bordas;
    const PERFIS p = perfisDe([&](double t, std::size_t) { return certo.em(t) + n(g); }, bordas);
    const std::optional<MOLDE> m = molda(p, iguais, janela, inicio());
    ASSERT_TRUE(m.has_value());
    EXPECT_GT(m->erro, antes);
    EXPECT_LT(std::fabs(m->onde), 3 * m->erro);
    antes = m->erro;
  }
}

// Errors that neighbours share count more than those that each has of its own.
TEST(Dispersao, VizinhasIguais) {
  const FIGURA f{'c', 50, 50, 40, 40, 0};
  ANDAR andar;
  andar.ruido = 0.01;
  BANCADA b;
  amostra(f, 120, b.amostras);
  b.bordas.assign(120, {});
  for (BORDA& x : b.bordas) {
    x.ha = true;
    x.rampa = 1;
  }
  std::mt19937 g(4);
  std::normal_distribution<double> n(0, 0.1);
  std::vector<double> sozinhas(120), juntas(120);
  for (std::size_t i = 0; i < 120; ++i) {
    sozinhas[i] = n(g);
    juntas[i] = i % 6 == 0 ? n(g) : juntas[i - 1];
  }
  const auto erroDoTamanho = [&](const std::vector<double>& longe, int vizinhas) {
    const EQUACOES q = equacoes(andar, f, longe, 10, b);
    const auto c = covariancia(q, dispersao(andar, f, longe, 10, vizinhas, b));
    return std::sqrt((*c)[2][2]);
  };
  // The diameter moves by twice the mean of the edges: 2 * 0.1 / sqrt(120), or / sqrt(20).
  EXPECT_NEAR(erroDoTamanho(sozinhas, 0), 0.0183, 0.003);
  EXPECT_NEAR(erroDoTamanho(sozinhas, 8), 0.0183, 0.007);
  EXPECT_NEAR(erroDoTamanho(juntas, 8), 0.0447, 0.015);
  EXPECT_LT(erroDoTamanho(juntas, 0), 0.6 * erroDoTamanho(juntas, 8));
}

}  // namespace refine
