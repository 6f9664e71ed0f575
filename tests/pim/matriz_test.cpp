#include "pim/matriz.h"

#include <array>
#include <csignal>
#include <stdexcept>

#include "apoio/erros.h"
#include "fabrica.h"

namespace {

MATRIZ<int> numerada(unsigned rows, unsigned cols) {
  MATRIZ<int> m(rows, cols);
  for (unsigned l = 0; l < rows; ++l) {
    for (unsigned c = 0; c < cols; ++c) m(l, c) = static_cast<int>(10 * l + c);
  }
  return m;
}

}  // namespace

TEST(Matriz, CelulasNascemComOValorPadrao) {
  const MATRIZ<std::vector<int>> m(3, 4);
  EXPECT_EQ(m.rows, 3U);
  EXPECT_EQ(m.cols, 4U);
  EXPECT_EQ(m.n, 12U);
  EXPECT_TRUE(m(2, 3).empty());
  EXPECT_EQ(MATRIZ<int>(2, 2)(1, 1), 0);
}

TEST(Matriz, GuardaLinhaPorLinha) {
  const MATRIZ<int> m = numerada(2, 3);
  EXPECT_EQ(m.celulas, (std::vector<int>{0, 1, 2, 10, 11, 12}));
  EXPECT_EQ(m.atb(1, 2), 12);
}

TEST(Matriz, AtbForaDaMatrizDaOFundo) {
  MATRIZ<int> m = numerada(2, 3);
  EXPECT_EQ(m.atb(-1, 0), 0);
  m.backg = -7;
  EXPECT_EQ(m.atb(-1, 0), -7);
  EXPECT_EQ(m.atb(2, 0), -7);
  EXPECT_EQ(m.atb(0, -1), -7);
  EXPECT_EQ(m.atb(0, 3), -7);
  EXPECT_EQ(m.atb(0, 0), 0);
}

TEST(Matriz, OperadorForaDaMatrizFalhaNaAssercao) {
  MATRIZ<int> m(2, 3);
  const MATRIZ<int>& fixa = m;
  const auto menosUm = static_cast<unsigned>(-1);
  EXPECT_EQ(assercaoSemLinha([&] { m(menosUm, 0); }), foraDaGrade);
  EXPECT_EQ(assercaoSemLinha([&] { m(2, 0); }), foraDaGrade);
  EXPECT_EQ(assercaoSemLinha([&] { m(0, 3); }), foraDaGrade);
  EXPECT_EQ(assercaoSemLinha([&] { fixa(0, menosUm); }), foraDaGrade);
}

TEST(Matriz, VaziaSoTemFundo) {
  MATRIZ<int> m(0, 5);
  m.backg = 3;
  EXPECT_EQ(m.n, 0U);
  EXPECT_EQ(m.atb(0, 0), 3);
  EXPECT_EQ(assercaoSemLinha([&] { m(0, 0); }), foraDaGrade);
}

TEST(Matriz, TamanhoNaoTransbordaTrintaEDoisBits) {
  // 32-bit arithmetic would wrap and build a single cell.
  using GRANDE = std::array<char, 65536>;
  EXPECT_THROW(MATRIZ<GRANDE>(4294967295U, 4294967295U), std::length_error);
}
