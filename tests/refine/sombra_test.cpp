#include "refine/sombra.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace refine {

namespace {

MEDIDO semSombraNenhuma() {
  MEDIDO m;
  m.inteiro = MEDIDA{};
  m.inteiro->figura = {'c', 50, 50, 20, 20, 0};
  return m;
}

// A grain of 20 pixels and a smaller shape, its middle moved so far.
MEDIDO comSombra(double dl, double dc) {
  MEDIDO m = semSombraNenhuma();
  m.semSombra = MEDIDA{};
  m.semSombra->figura = {'c', 50 + dl, 50 + dc, 15, 15, 0};
  return m;
}

double tamanhoDe(const MEDIDO& m) {
  return m.inteiro->figura.d1;
}

}  // namespace

TEST(Sombra, TiraAsDoMesmoLado) {
  std::vector<MEDIDO> v = {comSombra(-2, -2), comSombra(-2.1, -1.9), comSombra(-1, -1.2),
                           comSombra(-1, -1), semSombraNenhuma(),    MEDIDO{}};
  tiraSombras(v);
  for (std::size_t k = 0; k < 4; ++k) EXPECT_EQ(tamanhoDe(v[k]), 15) << k;
  EXPECT_EQ(tamanhoDe(v[4]), 20);
  EXPECT_FALSE(v[5].inteiro.has_value());
}

TEST(Sombra, DeixaADoOutroLado) {
  std::vector<MEDIDO> v(14, comSombra(0, -2));
  v.push_back(comSombra(0, 2));
  v.push_back(comSombra(2, 0));
  tiraSombras(v);
  EXPECT_EQ(tamanhoDe(v[13]), 15);
  EXPECT_EQ(tamanhoDe(v[14]), 20);
  EXPECT_EQ(tamanhoDe(v[15]), 20);
}

TEST(Sombra, SemLuzDeUmLadoNadaMuda) {
  std::vector<MEDIDO> v = {comSombra(2, 0), comSombra(-2, 0), comSombra(0, 2), comSombra(0, -2)};
  tiraSombras(v);
  for (const MEDIDO& m : v) EXPECT_EQ(tamanhoDe(m), 20);
}

TEST(Sombra, PoucasNaoBastam) {
  std::vector<MEDIDO> duas = {comSombra(2, 0), comSombra(2, 0)};
  tiraSombras(duas);
  EXPECT_EQ(tamanhoDe(duas[0]), 20);
  // Three of thirteen are fewer than a quarter; three of twelve are not.
  std::vector<MEDIDO> raras(3, comSombra(2, 0));
  raras.resize(13, semSombraNenhuma());
  tiraSombras(raras);
  EXPECT_EQ(tamanhoDe(raras[0]), 20);
  raras.pop_back();
  tiraSombras(raras);
  EXPECT_EQ(tamanhoDe(raras[0]), 15);
}

TEST(Sombra, MeioParadoNaoTemLado) {
  std::vector<MEDIDO> v(4, comSombra(0, -1));
  v.push_back(comSombra(0, 0));
  tiraSombras(v);
  EXPECT_EQ(tamanhoDe(v[0]), 15);
  EXPECT_EQ(tamanhoDe(v[4]), 20);
  std::vector<MEDIDO> vazia;
  tiraSombras(vazia);
  EXPECT_TRUE(vazia.empty());
}

}  // namespace refine
