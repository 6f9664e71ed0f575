#include "measure/borda.h"

#include <gtest/gtest.h>

#include "measure/resumo.h"

using namespace measure;

namespace {

// In a picture of 100 rows by 200 columns: a whole disc, one that is cut, a whole ellipse.
std::vector<GRAO> tres() {
  return medeTodos({{0.5F, 'c', 50, 50, 20, 20, 0},
                    {0.5F, 'c', 50, 2, 20, 20, 0},
                    {0.5F, 'e', 50, 99, 40, 10, 90}},
                   100, 200);
}

FOTOGRAFIA foto(BORDA borda) {
  FOTOGRAFIA f{"a", 100, 200, {}, tres(), METODO::classico, borda};
  ponderaBorda(f.graos, f.rows, f.cols, borda);
  return f;
}

TEST(Borda, AChanceEhADaCaixaNaFotografia) {
  const std::vector<GRAO> v = tres();
  EXPECT_DOUBLE_EQ(chanceDeInteiro(v[0], 100, 200), 0.8 * 0.9);
  EXPECT_DOUBLE_EQ(chanceDeInteiro(v[2], 100, 200), 0.6 * 0.95);
}

TEST(Borda, CorrigeContaOsInteirosPeloInversoDaChance) {
  const FOTOGRAFIA f = foto(BORDA::corrige);
  ASSERT_EQ(f.graos.size(), 3U);
  EXPECT_DOUBLE_EQ(f.graos[0].vezes, 1 / 0.72);
  EXPECT_EQ(f.graos[1].vezes, 0);
  const RESUMO r = resume(f, GRANDEZA::maior, PESO::numero);
  EXPECT_EQ(r.graos, 2U);
  EXPECT_EQ(r.naBorda, 1U);
  EXPECT_EQ(r.porForma[0], 1U);
  EXPECT_DOUBLE_EQ(*r.densidade, (1 / 0.72 + 1 / 0.57) / 20000);
  EXPECT_DOUBLE_EQ(*r.cobertura, (f.graos[0].area / 0.72 + f.graos[2].area / 0.57) / 20000);
  EXPECT_DOUBLE_EQ(*r.distribuicao.media, (20 / 0.72 + 40 / 0.57) / (1 / 0.72 + 1 / 0.57));
}

TEST(Borda, IncluiContaTodosIgual) {
  const RESUMO r = resume(foto(BORDA::inclui), GRANDEZA::maior, PESO::numero);
  EXPECT_EQ(r.graos, 3U);
  EXPECT_DOUBLE_EQ(*r.densidade, 3.0 / 20000);
  EXPECT_DOUBLE_EQ(*r.distribuicao.media, 80.0 / 3);
}

TEST(Borda, ExcluiDeixaForaOsCortadosEADensidadeSabeDisso) {
  const FOTOGRAFIA f = foto(BORDA::exclui);
  ASSERT_EQ(f.graos.size(), 2U);
  const RESUMO r = resume(f, GRANDEZA::maior, PESO::numero);
  EXPECT_EQ(r.graos, 2U);
  EXPECT_DOUBLE_EQ(*r.distribuicao.media, 30);
  EXPECT_DOUBLE_EQ(*r.densidade, (1 / 0.72 + 1 / 0.57) / 20000);
}

}  // namespace
