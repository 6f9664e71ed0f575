#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>

#include "apoio/erros.h"
#include "apoio/figuras.h"
#include "filter/filtinter.h"
#include "referencia/filtro.h"

// The intersection filter against its plain form on crowded random lists.

namespace {

using referencia::RETIRADA;
using referencia::RETIRADAS;

constexpr double naoNumero = std::numeric_limits<double>::quiet_NaN();

struct CASO {
  cv::Size tamanho;
  std::vector<MAXLOCAL> entrada;
  LIMIARES limiares;
};

int centro(std::mt19937& sorteio, int n) {
  switch (sorteia(sorteio, 0, 5)) {
    case 0:
      return sorteia(sorteio, -2, 12);  // the corner where withdrawn shapes leave
    case 1:
      return sorteia(sorteio, -15, n + 15);
    case 2:
      return sorteia(sorteio, 0, 200) == 0 ? std::numeric_limits<int>::max() : n / 2;
    default:
      return sorteia(sorteio, 0, n - 1);
  }
}

MAXLOCAL sorteiaDeteccao(std::mt19937& sorteio, const CASO& caso, int maiorLado) {
  constexpr char letras[] = "cccqqqrrreeexz";
  MAXLOCAL m;
  m.correl = static_cast<float>(sorteia(sorteio, 0, 10)) / 10;
  if (sorteia(sorteio, 0, 30) == 0) m.correl = std::numeric_limits<float>::quiet_NaN();
  m.forma = letras[sorteia(sorteio, 0, 13)];
  m.li = centro(sorteio, caso.tamanho.height);
  m.ci = centro(sorteio, caso.tamanho.width);
  if (!caso.entrada.empty() && sorteia(sorteio, 0, 2) == 0) {  // close to the one before
    constexpr int longe = 1000;
    m.li = std::min(caso.entrada.back().li, longe) + sorteia(sorteio, -4, 4);
    m.ci = std::min(caso.entrada.back().ci, longe) + sorteia(sorteio, -4, 4);
  }
  m.d1 = sorteia(sorteio, -2, 2 * maiorLado) * 0.5;
  m.d2 = sorteia(sorteio, -2, 2 * maiorLado) * 0.5;
  m.ang = sorteia(sorteio, 0, 359);
  return m;
}

LIMIAR limiar(std::mt19937& sorteio) {
  constexpr double minimos[] = {-1, 0, 0.1, 0.2, 0.5, naoNumero};
  constexpr double maximos[] = {0, 0.05, 0.1, 0.2, 0.3, 0.3, 0.5, 0.8, 1, 1, naoNumero};
  return {minimos[sorteia(sorteio, 0, 5)], maximos[sorteia(sorteio, 0, 10)]};
}

CASO sorteado(std::mt19937& sorteio) {
  CASO caso;
  caso.tamanho = {sorteia(sorteio, 1, 70), sorteia(sorteio, 1, 70)};
  // Small shapes on large images and the other way round.
  const int maiorLado = sorteia(sorteio, 2, 25);
  const int quantos = sorteia(sorteio, 1, 60);
  for (int i = 0; i < quantos; ++i) {
    caso.entrada.push_back(sorteiaDeteccao(sorteio, caso, maiorLado));
  }
  caso.limiares = {limiar(sorteio), limiar(sorteio), limiar(sorteio), limiar(sorteio)};
  return caso;
}

std::vector<MAXLOCAL> filtraCaso(CASO caso) {
  std::vector<MAXLOCAL> saida;
  filtInter(caso.entrada, saida, caso.tamanho, caso.limiares);
  return saida;
}

bool mesma(const MAXLOCAL& a, const MAXLOCAL& b) {
  const bool correl = a.correl == b.correl || (a.correl != a.correl && b.correl != b.correl);
  return correl && a.forma == b.forma && a.li == b.li && a.ci == b.ci && a.d1 == b.d1 &&
         a.d2 == b.d2 && a.ang == b.ang;
}

bool mesmas(const std::vector<MAXLOCAL>& a, const std::vector<MAXLOCAL>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), mesma);
}

// What the plain form does with a case.
struct ESPERADO {
  std::vector<MAXLOCAL> mantidos;
  RETIRADAS retiradas;
  std::string assercao;  // that ended it; empty when none did
};

ESPERADO filtraSimples(const CASO& caso, RETIRADA retirada = RETIRADA::doTamanhoDaMascara) {
  ESPERADO e;
  e.assercao = assercaoSemLinha([&] {
    e.retiradas =
        referencia::filtra(caso.entrada, e.mantidos, caso.tamanho, caso.limiares, retirada);
  });
  return e;
}

// With the sanitizers the plain form takes long.
#ifdef VORPLEX_SANITIZE
constexpr int casos = 500;
#else
constexpr int casos = 1500;
#endif

TEST(FiltInterSorteado, IgualAFormaSimples) {
  constexpr unsigned semente = 20411;
  std::mt19937 sorteio(semente);
  int retirados = 0;
  int presos = 0;
  int completos = 0;
  int mudam[3] = {0, 0, 0};  // cases in which another way to withdraw would keep other shapes
  for (int i = 0; i < casos; ++i) {
    SCOPED_TRACE(cv::format("semente %u caso %d", semente, i));
    const CASO caso = sorteado(sorteio);
    const ESPERADO esperado = filtraSimples(caso);
    if (!esperado.assercao.empty()) continue;
    ++completos;
    retirados += esperado.retiradas.retirados;
    presos += esperado.retiradas.presos;
    for (int k = 0; k < 3 && esperado.retiradas.retirados > 0; ++k) {
      constexpr RETIRADA outras[] = {RETIRADA::semUltimaColuna, RETIRADA::daImagem,
                                     RETIRADA::nenhuma};
      if (!mesmas(filtraSimples(caso, outras[k]).mantidos, esperado.mantidos)) ++mudam[k];
    }
    ASSERT_TRUE(mesmas(filtraCaso(caso), esperado.mantidos));
  }
  std::printf("%d casos, %d retirados, %d celulas presas; mudariam: %d %d %d\n", completos,
              retirados, presos, mudam[0], mudam[1], mudam[2]);
  EXPECT_GT(completos, casos * 2 / 3);
  EXPECT_GT(retirados, casos * 2 / 3);
  EXPECT_GT(presos, casos * 20 / 3);
  for (const int n : mudam) EXPECT_GT(n, casos / 600);
}

TEST(FiltInterSorteado, ViolaAMesmaAfirmacaoQueAFormaSimples) {
  constexpr unsigned semente = 20412;
  std::mt19937 sorteio(semente);
  int violacoes = 0;
  for (int i = 0; i < 100000 && violacoes < 12; ++i) {
    SCOPED_TRACE(cv::format("semente %u caso %d", semente, i));
    const CASO caso = sorteado(sorteio);
    const std::string assercao = filtraSimples(caso).assercao;
    if (assercao.empty()) continue;
    ++violacoes;
    ASSERT_EQ(assercao, foraDaGrade);
    EXPECT_EQ(assercaoSemLinha([&] { filtraCaso(caso); }), foraDaGrade);
  }
  EXPECT_EQ(violacoes, 12);
}

}  // namespace
