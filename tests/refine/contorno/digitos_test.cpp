#include "refine/contorno/digitos.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace refine {
namespace {

TEST(Digitos, DoisDoErro) {
  const FIGURA f = peloErro({'e', 60.3351923, 1234.5678, 30.25678, 20.00049, 12.3456},
                            {0.021, 0.3, 0.04, 0.00123, 1.7});
  EXPECT_EQ(f.l, 60.335);
  EXPECT_EQ(f.c, 1234.57);
  EXPECT_EQ(f.d1, 30.257);
  EXPECT_EQ(f.d2, 20.0005);
  EXPECT_EQ(f.ang, 12.3);
}

TEST(Digitos, SemErroNadaMuda) {
  const FIGURA f = peloErro({'c', 1.23456789, 2.3456789, 10.123456, 7, 33.3}, {});
  EXPECT_EQ(f.l, 1.23456789);
  EXPECT_EQ(f.d1, 10.123456);
  EXPECT_EQ(f.d2, 7);
  EXPECT_EQ(f.ang, 33.3);
}

TEST(Digitos, NuncaTrocaOsTamanhosENaoMudaDeNovo) {
  std::mt19937 sorteio(7);
  std::uniform_real_distribution<double> u(0, 1);
  for (int i = 0; i < 20000; ++i) {
    const double d = 5 + 90 * u(sorteio);
    const auto erro = [&] { return std::pow(10.0, -4 + 5 * u(sorteio)); };
    const std::array<double, 5> erros = {erro(), erro(), erro(), erro(), erro()};
    const FIGURA antes{'r', 100 * u(sorteio),     100 * u(sorteio),
                       d,   d - 0.1 * u(sorteio), 180 * u(sorteio)};
    const FIGURA f = peloErro(antes, erros);
    EXPECT_GE(f.d1, f.d2);
    EXPECT_LE(std::abs(f.l - antes.l), 0.06 * erros[0] + 1e-12);
    const FIGURA g = peloErro(f, erros);
    EXPECT_EQ(g.l, f.l);
    EXPECT_EQ(g.d1, f.d1);
    EXPECT_EQ(g.d2, f.d2);
    EXPECT_EQ(g.ang, f.ang);
  }
}

}  // namespace
}  // namespace refine
