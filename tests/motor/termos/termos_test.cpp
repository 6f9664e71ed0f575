#include "motor/termos/termos.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "kernels/normaliza.h"
#include "motor/termos/escolha.h"

using namespace motor;

namespace {

constexpr unsigned sementeDeRegioes = 4711;

// The weights of the pixels from row `topo` down and column `margem` on.
struct PESOS {
  int topo;
  int margem;
  std::vector<std::vector<int>> linhas;

  int& em(int l, int c) {
    const auto i = static_cast<std::size_t>(l - topo);
    const auto j = static_cast<std::size_t>(c - margem);
    if (linhas.size() <= i) linhas.resize(i + 1);
    if (linhas[i].size() <= j) linhas[i].resize(j + 1, 0);
    return linhas[i][j];
  }
};

// Adds to `pesos` the pixels that plane `p` sums at (l, c), each with weight `s`: by the definition
// of the planes, step by step up to the first row and along each row to the first column.
void expande(const std::vector<PLANO>& planos, int p, int l, int c, int s, PESOS& pesos) {
  for (; l >= pesos.topo; --l) {
    if (p == 0) {
      for (int x = pesos.margem; x <= c; ++x) pesos.em(l, x) += s;
      return;
    }
    const PLANO& plano = planos[static_cast<std::size_t>(p) - 1];
    if (plano.dosPixels && c >= pesos.margem) pesos.em(l, c) += s;
    for (const TERMO& t : plano.soma) {
      expande(planos, t.plano, l + t.dl, c + t.dc, s * t.sinal, pesos);
    }
    l -= plano.dl - 1;
    c -= plano.dc;
  }
}

// The region that the terms sum, by the definition of the planes; empty when some pixel has a
// weight other than 0 and 1 or lies outside.
REGIAO refaz(const std::vector<TERMO>& termos, const std::vector<PLANO>& planos, int rows,
             int cols) {
  // Sums that start above and left of everything agree wherever they meet.
  constexpr int longe = 40;
  PESOS pesos{-rows / 2 - longe, -cols / 2 - longe * 4, {}};
  for (const TERMO& t : termos) expande(planos, t.plano, t.dl, t.dc, t.sinal, pesos);
  REGIAO r(rows, cols, static_cast<unsigned char>(0));
  for (std::size_t i = 0; i < pesos.linhas.size(); ++i) {
    for (std::size_t j = 0; j < pesos.linhas[i].size(); ++j) {
      const int peso = pesos.linhas[i][j];
      const int l = static_cast<int>(i) + pesos.topo + rows / 2;
      const int c = static_cast<int>(j) + pesos.margem + cols / 2;
      if (peso == 0) continue;
      if (peso != 1 || l < 0 || l >= rows || c < 0 || c >= cols) return {};
      r(l, c) = 1;
    }
  }
  return r;
}

bool iguais(const REGIAO& a, const REGIAO& b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin());
}

REGIAO manchada(std::mt19937& g) {
  REGIAO r(static_cast<int>(g() % 12 + 1), static_cast<int>(g() % 12 + 1));
  for (unsigned char& p : r) p = static_cast<unsigned char>(g() % 3 == 0 ? 0 : 1);
  return r;
}

// A band whose two sides follow the steps of a period, now and then with one step more or less.
REGIAO emEscada(std::mt19937& g, const std::vector<int>& passos) {
  REGIAO r(static_cast<int>(g() % 25 + 5), 121, static_cast<unsigned char>(0));
  std::size_t fase = g() % passos.size();
  int de = 40 + static_cast<int>(g() % 20);
  int ate = de + 10 + static_cast<int>(g() % 10);
  for (int l = 0; l < r.rows; ++l) {
    for (int c = std::clamp(de, 0, 120); c <= std::clamp(ate, 0, 120); ++c) r(l, c) = 1;
    const int passo = passos[fase++ % passos.size()];
    de += passo + (g() % 5 == 0 ? static_cast<int>(g() % 3) - 1 : 0);
    ate += passo + (g() % 5 == 0 ? static_cast<int>(g() % 3) - 1 : 0);
    if (g() % 9 == 0) ++fase;
  }
  return r;
}

const std::vector<std::vector<ESCADA>> conjuntos = {
    {},
    {{{0}, false}},
    {{{0}, true}},
    {{{1}, true}, {{-1}, true}},
    {{{0}, true}, {{0, 1}, false}},
    {{{0}, false}, {{0, 1}, true}, {{0, -1}, true}},
    {{{2}, true}, {{-1}, false}, {{1, 0, 0}, true}},
    {{{0}, true}, {{1}, true}, {{2, 1, 1}, false}, {{0, 0, -1, 0, -1}, false}},
};

void confereTermos(const REGIAO& regiao) {
  const auto lados = ladosDaRegiao(regiao);
  for (std::size_t i = 0; i < conjuntos.size(); ++i) {
    const auto termos = termosDosLados(lados, conjuntos[i]);
    const auto planos = planosDasEscadas(conjuntos[i]);
    ASSERT_TRUE(iguais(refaz(termos, planos, regiao.rows, regiao.cols), regiao))
        << "set " << i << "\n"
        << cv::format(regiao, cv::Formatter::FMT_NUMPY);
    ASSERT_EQ(static_cast<int>(termos.size()), custoDosLados(lados, conjuntos[i])) << "set " << i;
  }
}

std::size_t termosCom(const REGIAO& r, const std::vector<ESCADA>& escadas) {
  return termosDosLados(ladosDaRegiao(r), escadas).size();
}

}  // namespace

TEST(Termos, SomamQualquerRegiaoComQualquerConjuntoDeEscadas) {
  std::mt19937 g(sementeDeRegioes);
  for (int vez = 0; vez < 60; ++vez) confereTermos(manchada(g));
}

TEST(Termos, SomamRegioesDeLadosEmEscadaComDesvios) {
  std::mt19937 g(sementeDeRegioes);
  for (const std::vector<int>& passos : std::vector<std::vector<int>>{
           {0}, {1}, {-1}, {2}, {0, 1}, {0, -1}, {1, 0, 0}, {2, 1, 1}, {0, 0, -1, 0, -1}}) {
    for (int vez = 0; vez < 5; ++vez) confereTermos(emEscada(g, passos));
  }
}

TEST(Termos, SomamAsDuasRegioesDosKernels) {
  for (const double ang : {0.0, 10.0, 45.0, 133.0}) {
    cv::Mat_<float> K;
    kernelElipse(K, 60, 36, ang);
    const REGIOES r = *regioesDoKernel(K);
    for (const REGIAO& regiao : {r.tudo, r.nucleo}) {
      const auto lados = ladosDaRegiao(regiao);
      const auto escadas = escolheEscadas(lados);
      const auto termos = termosDosLados(lados, escadas);
      EXPECT_TRUE(
          iguais(refaz(termos, planosDasEscadas(escadas), regiao.rows, regiao.cols), regiao));
    }
  }
}

TEST(Termos, UmRetanguloDireitoPedeQuatroTermosDeQualquerTamanho) {
  for (const double d : {20.0, 200.0}) {
    cv::Mat_<float> K;
    kernelQuadrado(K, d, 0);
    EXPECT_EQ(termosCom(regioesDoKernel(K)->nucleo, {{{0}, false}}), 4U);
  }
}

TEST(Termos, UmDesvioCustaUmSoTermo) {
  // The left side stands at one column, then at the next: start, deviation, end. The right side is
  // straight: start and end.
  REGIAO r(12, 9, static_cast<unsigned char>(1));
  for (int l = 6; l < 12; ++l) r(l, 0) = 0;
  EXPECT_EQ(termosCom(r, {{{0}, true}}), 5U);
  EXPECT_EQ(termosCom(r, {{{0}, false}}), 6U);
  EXPECT_EQ(termosCom(r, {}), 24U);
}

TEST(Termos, UmQuadradoViradoGrandeCustaPoucosTermos) {
  cv::Mat_<float> K;
  kernelQuadrado(K, 240, 20);
  const REGIAO tudo = regioesDoKernel(K)->tudo;
  EXPECT_LT(termosCom(tudo, escolheEscadas(ladosDaRegiao(tudo))), termosCom(tudo, {}) / 8);
}
