#include "refine/escolha.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

#include "refine/contorno/amostras.h"
#include "refine/contorno/vizinhos.h"

namespace refine {

namespace {

using LISTA_DE_FORMAS = std::vector<FIGURA>;
using NUMEROS = std::vector<std::size_t>;

bool coberto(const FIGURA& f, double l, double c) {
  return contem(f, EIXOS(f), l, c);
}

// Whether `f` finds room among the `outras`, each point against each of them.
bool cabeDevagar(const FIGURA& f, const LISTA_DE_FORMAS& outras, const REGRAS& r) {
  std::vector<PONTO_NA_FOTO> pontos;
  pontosDentro(f, pontos);
  int algum = 0;
  for (const PONTO_NA_FOTO& p : pontos) {
    algum += std::any_of(outras.begin(), outras.end(),
                         [&](const FIGURA& g) { return coberto(g, p.l, p.c); });
  }
  const auto n = static_cast<double>(pontos.size());
  if (algum > r.sobreposicao * n) return false;
  for (const FIGURA& g : outras) {
    const auto comuns = std::count_if(pontos.begin(), pontos.end(),
                                      [&](const PONTO_NA_FOTO& p) { return coberto(g, p.l, p.c); });
    if (static_cast<double>(comuns) / n * area(f) > r.sobreposicao * area(g)) return false;
  }
  if (algum == 0) return true;
  std::vector<AMOSTRA> contorno;
  amostra(f, 32, contorno);
  double livre = 0, total = 0;
  for (const AMOSTRA& a : contorno) {
    bool fundo = false;  // well inside another
    for (const FIGURA& g : outras) {
      fundo = fundo || (coberto(g, a.l - 1.5 * a.nl, a.c - 1.5 * a.nc) &&
                        coberto(g, a.l + 1.5 * a.nl, a.c + 1.5 * a.nc));
    }
    total += a.arco;
    livre += fundo ? 0 : a.arco;
  }
  return livre >= r.contornoLivre * total;
}

struct ESCOLHA_LENTA {
  const LISTA_DE_FORMAS& figuras;
  const std::vector<double>& notas;
  const REGRAS& regras;
  NUMEROS aceitas = {};

  bool cabe(std::size_t k) const {
    LISTA_DE_FORMAS outras;
    for (const std::size_t i : aceitas) outras.push_back(figuras[i]);
    return cabeDevagar(figuras[k], outras, regras);
  }

  void enche(const NUMEROS& ordem, double menor) {
    for (const std::size_t k : ordem) {
      if (notas[k] > menor && cabe(k)) aceitas.push_back(k);
    }
  }

  // Those of a score of at least -0.5 within `velha`, smaller and with room once it is gone.
  void troca(std::size_t velha, const NUMEROS& ordem) {
    const FIGURA& f = figuras[velha];
    ESCOLHA_LENTA sem = *this;
    std::erase(sem.aceitas, velha);
    double soma = 0;
    int novas = 0;
    for (const std::size_t k : ordem) {
      const FIGURA& g = figuras[k];
      if (k == velha || notas[k] < -0.5 || area(g) >= 0.8 * area(f)) continue;
      if (!coberto(f, g.l, g.c) || !sem.cabe(k)) continue;
      sem.aceitas.push_back(k);
      soma += notas[k];
      ++novas;
    }
    if (novas >= 2 && soma > notas[velha]) aceitas = sem.aceitas;
  }
};

NUMEROS escolheDevagar(const LISTA_DE_FORMAS& figuras, const std::vector<double>& notas,
                       const REGRAS& regras) {
  NUMEROS ordem(figuras.size());
  std::iota(ordem.begin(), ordem.end(), std::size_t{0});
  std::stable_sort(ordem.begin(), ordem.end(),
                   [&](std::size_t a, std::size_t b) { return notas[a] > notas[b]; });
  ESCOLHA_LENTA e{figuras, notas, regras};
  e.enche(ordem, regras.notaDeTroca);
  const NUMEROS primeiras = e.aceitas;
  for (const std::size_t velha : primeiras) e.troca(velha, ordem);
  e.enche(ordem, regras.menorNota);
  return e.aceitas;
}

}  // namespace

TEST(Escolha, EhADaRegraFeitaDevagar) {
  std::mt19937 g(17);
  std::uniform_real_distribution<double> tamanho(8, 50), ang(0, 180), nota(-5, 5);
  std::size_t escolhidas = 0;
  for (int caso = 0; caso < 60; ++caso) {
    const double lado = caso % 2 == 0 ? 120 : 220;
    std::uniform_real_distribution<double> lugar(0, lado);
    LISTA_DE_FORMAS figuras;
    std::vector<double> notas;
    double ultima = 0;
    for (int k = 0; k < 40; ++k) {
      FIGURA f{"cqre"[g() % 4], lugar(g), lugar(g), tamanho(g), tamanho(g), ang(g)};
      if (f.forma == 'c' || f.forma == 'q') f.d2 = f.d1;
      figuras.push_back(f);
      if (k % 5 != 4) ultima = nota(g);  // some scores are equal
      notas.push_back(ultima);
    }
    REGRAS regras;
    regras.sobreposicao = caso % 3 == 0 ? 0.1 : 0.3;
    const NUMEROS lenta = escolheDevagar(figuras, notas, regras);
    ASSERT_EQ(escolhe(figuras, notas, regras), lenta) << caso;
    escolhidas += lenta.size();
  }
  EXPECT_GT(escolhidas, 300U);
  EXPECT_LT(escolhidas, 60U * 30);
}

TEST(Escolha, AMelhorDasIguaisEmOrdem) {
  const LISTA_DE_FORMAS v = {{'c', 50, 50, 20, 20, 0},
                             {'c', 51, 50, 20, 20, 0},
                             {'q', 200, 50, 20, 20, 0},
                             {'q', 50, 200, 20, 20, 0}};
  EXPECT_EQ(escolhe(v, {1, 2, 3, -2}, {}), (NUMEROS{2, 1, 3}));
  EXPECT_EQ(escolhe(v, {2, 2, 3, -3.1}, {}), (NUMEROS{2, 0}));
  EXPECT_TRUE(escolhe({}, {}, {}).empty());
}

// One shape over three grains.
TEST(Escolha, UmaSobreTresCedeQuandoJuntasValemMais) {
  const LISTA_DE_FORMAS v = {{'r', 50, 50, 66, 24, 0},
                             {'c', 50, 28, 20, 20, 0},
                             {'c', 50, 50, 20, 20, 0},
                             {'c', 50, 72, 20, 20, 0}};
  EXPECT_EQ(escolhe(v, {4, 2, 1.5, 1}, {}), (NUMEROS{1, 2, 3}));
  EXPECT_EQ(escolhe(v, {4.6, 2, 1.5, 1}, {}), (NUMEROS{0}));
  // One alone takes no place, however good; poor ones don't count.
  EXPECT_EQ(escolhe({v[0], v[1]}, {4, 3.9}, {}), (NUMEROS{0}));
  EXPECT_EQ(escolhe(v, {2, 1.9, -0.6, -0.7}, {}), (NUMEROS{0}));
}

}  // namespace refine
