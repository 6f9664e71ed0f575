#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <limits>
#include <random>

#include "apoio/detector.h"
#include "apoio/erros.h"
#include "detect/ordenacao.h"
#include "referencia/proximos.h"

namespace {

using LISTA = std::vector<MAXLOCAL>;

MAXLOCAL ponto(float correl, char forma, int li, int ci) {
  return {correl, forma, li, ci, 9, 9, 0};
}

LISTA eliminaIngenuo(const LISTA& entrada, int maxDist) {
  LISTA mantidos;
  for (const MAXLOCAL& m : entrada) {
    const bool repetido = std::any_of(mantidos.begin(), mantidos.end(), [&](const MAXLOCAL& k) {
      return k.forma == m.forma && std::abs(k.li - m.li) <= maxDist &&
             std::abs(k.ci - m.ci) <= maxDist;
    });
    if (!repetido) mantidos.push_back(m);
  }
  std::stable_sort(mantidos.begin(), mantidos.end(),
                   [](const MAXLOCAL& a, const MAXLOCAL& b) { return a.ci < b.ci; });
  referencia::ordena(mantidos, 0, static_cast<int>(mantidos.size()) - 1);
  return mantidos;
}

std::size_t quantosFicam(const LISTA& entrada, int maxDist) {
  LISTA saida;
  eliminaProximo(entrada, saida, maxDist);
  return saida.size();
}

}  // namespace

TEST(EliminaProximo, ListasSorteadasSaoAsDeTodosOsPares) {
  constexpr unsigned semente = 35100;
  SCOPED_TRACE(semente);
  std::mt19937 g(semente);
  for (int vez = 0; vez < 400; ++vez) {
    LISTA entrada(1 + g() % 150);
    const unsigned lado = 1 + static_cast<unsigned>(g() % 60);
    const unsigned valores = 1 + static_cast<unsigned>(g() % 30);
    for (MAXLOCAL& m : entrada) {
      m = ponto(static_cast<float>(g() % valores), "cqre"[g() % 4],
                static_cast<int>(g() % lado) - 5, static_cast<int>(g() % lado) - 5);
      m.d1 = static_cast<double>(g());  // tells the copies apart
    }
    referencia::ordena(entrada, 0, static_cast<int>(entrada.size()) - 1);
    const int maxDist = static_cast<int>(g() % 6);
    const LISTA antes = entrada;
    LISTA saida(7);
    eliminaProximo(entrada, saida, maxDist);
    ASSERT_EQ(primeiraDiferenca(saida, eliminaIngenuo(antes, maxDist)), -1) << "lista " << vez;
    ASSERT_EQ(primeiraDiferenca(entrada, antes), -1) << "lista " << vez;
    ASSERT_TRUE(emOrdem(saida));
  }
}

TEST(EliminaProximo, DistanciaValeEmCadaEixo) {
  EXPECT_EQ(quantosFicam({ponto(1, 'c', 100, 100), ponto(0.5F, 'c', 102, 98)}, 2), 1U);
  EXPECT_EQ(quantosFicam({ponto(1, 'c', 100, 100), ponto(0.5F, 'c', 103, 100)}, 2), 2U);
  EXPECT_EQ(quantosFicam({ponto(1, 'c', 100, 100), ponto(0.5F, 'c', 100, 97)}, 2), 2U);
}

TEST(EliminaProximo, FicaOPrimeiroDaEntrada) {
  LISTA saida;
  eliminaProximo({ponto(1, 'c', 100, 100), ponto(1, 'c', 102, 98)}, saida, 2);
  ASSERT_EQ(saida.size(), 1U);
  EXPECT_EQ(saida[0].li, 100);
}

TEST(EliminaProximo, FormasDiferentesNaoSeEliminam) {
  EXPECT_EQ(quantosFicam({ponto(1, 'c', 5, 5), ponto(0.5F, 'q', 5, 5)}, 2), 2U);
}

TEST(EliminaProximo, DistanciaZeroSoTiraOMesmoPixel) {
  EXPECT_EQ(quantosFicam({ponto(3, 'c', 5, 5), ponto(2, 'c', 5, 6), ponto(1, 'c', 5, 5)}, 0), 2U);
}

TEST(EliminaProximo, EliminadoNaoEliminaNinguem) {
  // Each is within reach of the one before only.
  EXPECT_EQ(quantosFicam({ponto(3, 'c', 0, 0), ponto(2, 'c', 0, 2), ponto(1, 'c', 0, 4)}, 2), 2U);
}

TEST(EliminaProximo, SaidaEhPorCorrelacaoENaoPorColuna) {
  LISTA saida;
  eliminaProximo({ponto(3, 'c', 0, 50), ponto(2, 'c', 0, 10), ponto(1, 'c', 0, 90)}, saida, 2);
  ASSERT_EQ(saida.size(), 3U);
  EXPECT_EQ(saida[0].ci, 50);
  EXPECT_EQ(saida[1].ci, 10);
  EXPECT_EQ(saida[2].ci, 90);
}

TEST(EliminaProximo, TamanhoEAnguloNaoContam) {
  LISTA v = {ponto(1, 'r', 5, 5), ponto(0.5F, 'r', 5, 5)};
  v[1].d1 = 300;
  v[1].ang = 90;
  EXPECT_EQ(quantosFicam(v, 2), 1U);
}

TEST(EliminaProximo, DistanciaNegativaNaoTiraNada) {
  EXPECT_EQ(quantosFicam({ponto(1, 'c', 5, 5), ponto(0.5F, 'c', 5, 5)}, -1), 2U);
}

TEST(EliminaProximo, PosicoesExtremasNaoTransbordam) {
  constexpr int maior = std::numeric_limits<int>::max();
  constexpr int menor = std::numeric_limits<int>::min();
  EXPECT_EQ(quantosFicam({ponto(3, 'c', maior, maior), ponto(2, 'c', menor, menor),
                          ponto(1, 'c', maior - 1, maior)},
                         2),
            2U);
  EXPECT_EQ(quantosFicam({ponto(3, 'c', maior, 0), ponto(2, 'c', -1, 0)}, maior), 2U);
}

TEST(EliminaProximo, ListaVaziaFalhaNaAssercaoDaOrdenacao) {
  LISTA saida;
  EXPECT_EQ(assercaoDe([&] { eliminaProximo({}, saida, 2); }),
            "vorplex:558: void ordena(std::vector<MAXLOCAL>&, int, int): Assertion `l<=r' failed.");
}

TEST(Acrescenta, PoeNoFimNaOrdem) {
  LISTA v = {ponto(1, 'c', 0, 0), ponto(2, 'c', 0, 0)};
  acrescenta(v, {ponto(3, 'q', 0, 0), ponto(4, 'q', 0, 0), ponto(5, 'q', 0, 0)});
  ASSERT_EQ(v.size(), 5U);
  for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(v[i].correl, static_cast<float>(i + 1));
  acrescenta(v, {});
  EXPECT_EQ(v.size(), 5U);
}

TEST(Acrescenta, MaisRegistrosDoQueAOrdenacaoNumeraEhErro) {
  std::vector<MAXLOCAL> v = {ponto(1, 'c', 0, 0), ponto(2, 'c', 0, 0)};
  acrescenta(v, {ponto(3, 'q', 0, 0)}, 3);
  EXPECT_EQ(v.size(), 3U);
  EXPECT_EQ(erroDe([&] { acrescenta(v, {ponto(4, 'q', 0, 0)}, 3); }),
            "Erro: Maximos locais demais");
}
