#include "refine/contorno/numeros.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

namespace refine {

TEST(Numeros, DirecaoEhADaBiblioteca) {
  std::mt19937 g(1);
  std::uniform_real_distribution<double> muitasVoltas(-1e6, 1e6);
  std::uniform_real_distribution<double> umaVolta(-360, 360);
  for (int k = 0; k < 20000; ++k) {
    const double graus = k % 2 == 0 ? muitasVoltas(g) : umaVolta(g);
    const long double x = std::fmod(static_cast<long double>(graus), 360.0L) *
                          (std::numbers::pi_v<long double> / 180);
    const DIRECAO d = direcao(graus);
    ASSERT_NEAR(d.cosseno, static_cast<double>(std::cos(x)), 1e-14) << graus;
    ASSERT_NEAR(d.seno, static_cast<double>(std::sin(x)), 1e-14) << graus;
  }
}

TEST(Numeros, DirecaoEhExataNosMultiplosDe90) {
  constexpr double cossenos[] = {1, 0, -1, 0};
  constexpr double senos[] = {0, 1, 0, -1};
  for (int k = -4000; k <= 4000; ++k) {
    const DIRECAO d = direcao(90.0 * k);
    const int quarto = ((k % 4) + 4) % 4;
    ASSERT_EQ(d.cosseno, cossenos[quarto]) << k;
    ASSERT_EQ(d.seno, senos[quarto]) << k;
  }
}

TEST(Numeros, ExponencialEhADaBiblioteca) {
  for (int k = -700000; k <= 700000; k += 77) {
    const double x = k * 1e-3;
    ASSERT_NEAR(exponencial(x) / std::exp(x), 1, 1e-14) << x;
  }
  EXPECT_EQ(exponencial(0), 1);
  EXPECT_EQ(exponencial(-700.001), 0);
  EXPECT_EQ(exponencial(-1e300), 0);
}

TEST(Numeros, LogaritmoEhODaBiblioteca) {
  std::mt19937 g(2);
  std::uniform_real_distribution<double> expoente(-300, 300);
  std::uniform_real_distribution<double> pertoDeUm(-0.5, 0.5);
  for (int k = 0; k < 20000; ++k) {
    const double x = k % 2 == 0 ? std::pow(10.0, expoente(g)) : 1 + pertoDeUm(g);
    ASSERT_NEAR(logaritmo(x), std::log(x), 1e-14 * std::fmax(1, std::fabs(std::log(x)))) << x;
  }
  EXPECT_EQ(logaritmo(1), 0);
}

TEST(Numeros, AnguloEhODaBiblioteca) {
  constexpr double graus = 180 / std::numbers::pi;
  std::mt19937 g(3);
  std::uniform_real_distribution<double> expoente(-12, 12);
  std::bernoulli_distribution sinal;
  for (int k = 0; k < 20000; ++k) {
    const double y = std::pow(10.0, expoente(g)) * (sinal(g) ? 1 : -1);
    const double x = std::pow(10.0, expoente(g)) * (sinal(g) ? 1 : -1);
    ASSERT_NEAR(angulo(y, x) / graus, std::atan2(y, x), 1e-14) << y << ' ' << x;
  }
}

TEST(Numeros, AnguloEhExatoNosEixos) {
  EXPECT_EQ(angulo(0, 0), 0);
  EXPECT_EQ(angulo(0, 2), 0);
  EXPECT_EQ(angulo(3, 0), 90);
  EXPECT_EQ(angulo(0, -2), 180);
  EXPECT_EQ(angulo(-3, 0), -90);
}

TEST(Numeros, AcumuladaEhADaBiblioteca) {
  for (double x = -9; x <= 9; x += 0.01) {
    ASSERT_NEAR(acumulada(x), 0.5 * std::erfc(-x / std::numbers::sqrt2), 1e-7) << x;
  }
}

}  // namespace refine
