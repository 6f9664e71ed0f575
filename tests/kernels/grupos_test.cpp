#include "kernels/grupos.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace {

std::vector<std::pair<int, int>> gruposDe(const std::vector<int>& inics) {
  std::vector<MASCARA> conjunto;
  for (const int inic : inics) {
    MASCARA m;
    m.inic = inic;
    conjunto.push_back(m);
  }
  std::vector<std::pair<int, int>> pares;
  for (const auto& [primeiro, ultimo] : kernels::grupos(conjunto)) {
    pares.emplace_back(primeiro, ultimo);
  }
  return pares;
}

using PARES = std::vector<std::pair<int, int>>;

}  // namespace

TEST(Grupos, CadaCorridaDeEscalasEhUm) {
  EXPECT_EQ(gruposDe({0, 1, 1, 2, 0, 2}), (PARES{{0, 3}, {4, 5}}));
}

TEST(Grupos, CorridaDeUmaEscalaVaiComASeguinte) {
  EXPECT_EQ(gruposDe({0, 0, 0, 1, 2}), (PARES{{0, 4}}));
}

TEST(Grupos, OsDepoisDoUltimoQueFechaFicamDeFora) {
  EXPECT_EQ(gruposDe({0, 2, 0}), (PARES{{0, 1}}));
  EXPECT_EQ(gruposDe({0, 2, 0, 1, 1}), (PARES{{0, 1}}));
}

TEST(Grupos, SoOValor2Fecha) {
  EXPECT_EQ(gruposDe({2, 2, 5, -2, 3, 2}), (PARES{{0, 0}, {1, 1}, {2, 5}}));
}

TEST(Grupos, NenhumSemQuemFeche) {
  EXPECT_EQ(gruposDe({}), PARES{});
  EXPECT_EQ(gruposDe({0, 1, 0, 0}), PARES{});
}
