#include "refine/tracos/companhia.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>

namespace refine {

namespace {

// The columns: 4 of the scores, 2 of each comparison but 1 of the elongation,
// 1 more of the scores and their quartiles.
constexpr std::size_t colunaDoContraste = 6;
constexpr std::size_t colunaDaNota = 27;

EXAME exameDe(float perimetro, float contraste) {
  EXAME e;
  e.tracos[logPerimetro] = perimetro;
  e.tracos[logContraste] = contraste;
  return e;
}

}  // namespace

TEST(Companhia, ContasFeitasAMao) {
  const std::vector<COMPANHIA> v =
      comparaTodos({exameDe(2, 0), exameDe(2, 0.3F), exameDe(2, 1)}, {1, 3, -2}, {1, 1, 1});
  ASSERT_EQ(v.size(), 3U);
  const float parte = 3.0F / 11;  // of three sure shapes
  const float notas[] = {1, 3, -2};
  const float contrastes[] = {-0.5F, 0, 0.7F / 0.6F};  // by 1.5 x 0.3 + 0.15
  const float relativas[] = {0, 2 / 3.3F, -3 / 3.3F};  // by 1.5 x 2 + 0.3
  const float quadrados[] = {0, 0, 4};
  const float sobras[] = {0, 1, 0};
  for (std::size_t k = 0; k < 3; ++k) {
    EXPECT_FLOAT_EQ(v[k][0], notas[k]);
    EXPECT_FLOAT_EQ(v[k][1], quadrados[k]);
    EXPECT_FLOAT_EQ(v[k][2], sobras[k]);
    EXPECT_FLOAT_EQ(v[k][3], 1);  // the median
    EXPECT_EQ(v[k][4], 0);        // equal perimeters
    EXPECT_EQ(v[k][5], 0);
    EXPECT_NEAR(v[k][colunaDoContraste], parte * std::fabs(contrastes[k]), 1e-6);
    EXPECT_NEAR(v[k][colunaDoContraste + 1], parte * contrastes[k], 1e-6);
    EXPECT_NEAR(v[k][colunaDaNota], parte * relativas[k], 1e-6);
    EXPECT_FLOAT_EQ(v[k][colunaDaNota + 1], -2);
    EXPECT_FLOAT_EQ(v[k][colunaDaNota + 2], 3);
  }
}

TEST(Companhia, MaioresEMaisProvaveisPesamMais) {
  // The median of the scores is that of the large shape, of the probable shape.
  const std::vector<EXAME> umGrande = {exameDe(5, 0), exameDe(1, 0), exameDe(1, 0)};
  EXPECT_FLOAT_EQ(comparaTodos(umGrande, {4, 1, 2}, {1, 1, 1})[1][3], 4);
  const std::vector<EXAME> iguais(3, exameDe(1, 0));
  EXPECT_FLOAT_EQ(comparaTodos(iguais, {4, 1, 2}, {0.1, 1, 0.1})[0][3], 1);
}

TEST(Companhia, DiferencasTemLimite) {
  std::vector<EXAME> exames(9, exameDe(2, 0));
  exames.push_back(exameDe(2, 100));
  const std::vector<COMPANHIA> v =
      comparaTodos(exames, std::vector<double>(10, 0), std::vector<double>(10, 1));
  EXPECT_NEAR(v[9][colunaDoContraste], 10.0 / 18 * 4, 1e-6);
  EXPECT_NEAR(v[9][colunaDoContraste + 1], 10.0 / 18 * 4, 1e-6);
  EXPECT_EQ(v[0][colunaDoContraste], 0);
}

TEST(Companhia, UmaSoNaoDifereDeNinguem) {
  EXPECT_TRUE(comparaTodos({}, {}, {}).empty());
  for (const std::size_t n : {1U, 7U}) {
    const std::vector<COMPANHIA> v =
        comparaTodos(std::vector<EXAME>(n, exameDe(3, -1)), std::vector<double>(n, 2.5),
                     std::vector<double>(n, 0.9));
    for (const COMPANHIA& c : v) {
      EXPECT_FLOAT_EQ(c[0], 2.5);
      EXPECT_FLOAT_EQ(c[2], 0.5);
      EXPECT_FLOAT_EQ(c[3], 2.5);
      for (std::size_t k = 4; k <= colunaDaNota; ++k) EXPECT_EQ(c[k], 0) << k;
      EXPECT_FLOAT_EQ(c[colunaDaNota + 1], 2.5);
      EXPECT_FLOAT_EQ(c[colunaDaNota + 2], 2.5);
    }
  }
}

}  // namespace refine
