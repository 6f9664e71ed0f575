#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <random>

#include "apoio/figuras.h"
#include "deteccao.h"
#include "filter/filtinter.h"

// The two measures of overlap on grids filled by hand.

namespace {

using CELULAS = std::map<std::pair<int, int>, std::vector<int>>;

GRADE gradeDe(int linhas, int colunas, const CELULAS& celulas) {
  GRADE grade(static_cast<unsigned>(linhas), static_cast<unsigned>(colunas));
  grade.backg = {-1};
  for (const auto& [lugar, indices] : celulas) {
    grade(static_cast<unsigned>(lugar.first), static_cast<unsigned>(lugar.second)) = indices;
  }
  return grade;
}

TEST(CalcInter, MeioCirculoForaDaImagemDaQuaseMetadeNaGradeVazia) {
  const GRADE grade = gradeDe(100, 100, {});
  cv::Mat_<unsigned char> mascara;
  const double inter = calcInter(deteccao('c', 0, 50, 21), mascara, grade);
  EXPECT_EQ(inter, 148.0 / 317.0);
  EXPECT_NEAR(inter, 0.5, 0.05);
  EXPECT_EQ(mascara.rows, 23);
}

TEST(CalcInter, CirculoSobreOutroIgualDa1) {
  cv::Mat_<unsigned char> mascara;
  mascaraMaxLocal(deteccao('c', 10, 10, 9), mascara);
  CELULAS celulas;
  for (int r = 0; r < mascara.rows; ++r) {
    for (int c = 0; c < mascara.cols; ++c) {
      if (mascara(r, c) == 0) celulas[{10 + r - mascara.rows / 2, 10 + c - mascara.cols / 2}] = {0};
    }
  }
  const GRADE grade = gradeDe(30, 30, celulas);
  EXPECT_EQ(calcInter(deteccao('c', 10, 10, 9), mascara, grade), 1.0);
  EXPECT_EQ(calcInterViz(deteccao('c', 10, 10, 9), 0, mascara, grade), 0.0);
  EXPECT_EQ(calcInterViz(deteccao('c', 10, 10, 9), 1, mascara, grade), 1.0);
}

TEST(CalcInter, MascaraVaziaNaoDaNumero) {
  const GRADE grade = gradeDe(30, 30, {});
  for (const MAXLOCAL& m :
       {deteccao('x', 5, 5, 9), deteccao('c', 5, 5, 0), deteccao('q', 5, 5, -9)}) {
    cv::Mat_<unsigned char> mascara;
    EXPECT_TRUE(std::isnan(calcInter(m, mascara, grade)));
    EXPECT_TRUE(std::isnan(calcInterViz(m, 0, mascara, grade)));
    EXPECT_TRUE(mascara.empty());
  }
}

TEST(CalcInter, FormaSemPixelsNaoDaNumero) {
  // A negative half-side of a rectangle whose larger side still gives an image.
  const MAXLOCAL m = {0.5F, 'r', 5, 5, 9, -9, 0};
  const GRADE grade = gradeDe(30, 30, {});
  cv::Mat_<unsigned char> mascara;
  EXPECT_TRUE(std::isnan(calcInter(m, mascara, grade)));
  EXPECT_TRUE(std::isnan(calcInterViz(m, 0, mascara, grade)));
  EXPECT_FALSE(mascara.empty());
}

TEST(CalcInterViz, ContaCelulasComOutroIndiceOuComMaisDeUm) {
  // One-pixel ellipses look at single cells.
  const GRADE grade =
      gradeDe(2, 4, {{{0, 1}, {7}}, {{0, 2}, {3}}, {{0, 3}, {7, 7}}, {{1, 0}, {7, 3}}});
  const auto viz = [&](int l, int c) {
    cv::Mat_<unsigned char> mascara;
    return calcInterViz(deteccao('e', l, c, 0), 7, mascara, grade);
  };
  EXPECT_EQ(viz(0, 0), 0.0);   // nothing there
  EXPECT_EQ(viz(0, 1), 0.0);   // only itself
  EXPECT_EQ(viz(0, 2), 1.0);   // another
  EXPECT_EQ(viz(0, 3), 1.0);   // itself twice, as a withdrawn shape leaves it
  EXPECT_EQ(viz(1, 0), 1.0);   // both
  EXPECT_EQ(viz(-1, 0), 1.0);  // outside
  EXPECT_EQ(viz(0, 4), 1.0);
}

struct FRACOES {
  double inter;
  double viz;
};

FRACOES ingenuas(const MAXLOCAL& m, int indice, int linhas, int colunas, const CELULAS& celulas) {
  cv::Mat_<unsigned char> mascara;
  mascaraMaxLocal(m, mascara);
  int total = 0;
  int ocupados = 0;
  int alheios = 0;
  for (int r = 0; r < mascara.rows; ++r) {
    for (int c = 0; c < mascara.cols; ++c) {
      if (mascara(r, c) != 0) continue;
      ++total;
      const std::int64_t l = std::int64_t{m.li} + r - mascara.rows / 2;
      const std::int64_t k = std::int64_t{m.ci} + c - mascara.cols / 2;
      std::vector<int> t = {-1};
      if (l >= 0 && l < linhas && k >= 0 && k < colunas) {
        const auto achada = celulas.find({static_cast<int>(l), static_cast<int>(k)});
        t = achada == celulas.end() ? std::vector<int>() : achada->second;
      }
      if (!t.empty()) ++ocupados;
      if (t.size() > 1 || (t.size() == 1 && t.front() != indice)) ++alheios;
    }
  }
  return {ocupados / static_cast<double>(total), alheios / static_cast<double>(total)};
}

bool mesmo(double a, double b) {
  return a == b || (std::isnan(a) && std::isnan(b));
}

TEST(CalcInter, AmbasIguaisAContagemIngenuaEmGradesSorteadas) {
  constexpr unsigned semente = 20421;
  std::mt19937 sorteio(semente);
  int parciais = 0;
  for (int caso = 0; caso < 1500; ++caso) {
    SCOPED_TRACE(cv::format("semente %u caso %d", semente, caso));
    const int linhas = sorteia(sorteio, 1, 30);
    const int colunas = sorteia(sorteio, 1, 30);
    CELULAS celulas;
    for (int l = 0; l < linhas; ++l) {
      for (int c = 0; c < colunas; ++c) {
        for (int n = sorteia(sorteio, -3, 5); n > 0; --n)
          celulas[{l, c}].push_back(sorteia(sorteio, 0, 2));
      }
    }
    MAXLOCAL m = deteccao("cqrex"[sorteia(sorteio, 0, 4)], sorteia(sorteio, -12, linhas + 12),
                          sorteia(sorteio, -12, colunas + 12), sorteia(sorteio, -4, 50) * 0.5);
    m.d2 = sorteia(sorteio, -4, 50) * 0.5;
    m.ang = sorteia(sorteio, 0, 180);
    if (caso % 50 == 0) m.li = std::numeric_limits<int>::max();
    if (caso % 50 == 1) m.ci = std::numeric_limits<int>::min();
    const FRACOES esperadas = ingenuas(m, 1, linhas, colunas, celulas);
    const GRADE grade = gradeDe(linhas, colunas, celulas);
    cv::Mat_<unsigned char> mascara;
    ASSERT_TRUE(mesmo(calcInter(m, mascara, grade), esperadas.inter)) << m.forma;
    ASSERT_TRUE(mesmo(calcInterViz(m, 1, mascara, grade), esperadas.viz)) << m.forma;
    if (esperadas.viz > 0 && esperadas.viz < esperadas.inter) ++parciais;
  }
  EXPECT_GT(parciais, 150);
}

}  // namespace
