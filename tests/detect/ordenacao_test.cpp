#include "detect/ordenacao.h"

#include <gtest/gtest.h>
#include <pthread.h>

#include <algorithm>
#include <csignal>
#include <random>

#include "apoio/detector.h"
#include "apoio/erros.h"
#include "referencia/proximos.h"

namespace {

using LISTA = std::vector<MAXLOCAL>;

// Records with these correlations, each known by its row.
LISTA lista(const std::vector<float>& correls) {
  LISTA v(correls.size());
  for (std::size_t i = 0; i < v.size(); ++i) {
    v[i].correl = correls[i];
    v[i].li = static_cast<int>(i);
  }
  return v;
}

void ordenaTudo(LISTA& v) {
  ordena(v, 0, static_cast<int>(v.size()) - 1);
}

bool cadaUmUmaVez(const LISTA& v) {
  std::vector<bool> visto(v.size(), false);
  for (const MAXLOCAL& m : v) visto[static_cast<std::size_t>(m.li)] = true;
  return std::find(visto.begin(), visto.end(), false) == visto.end();
}

// Sorts in a thread of a small stack, which a depth of one level per element would overflow.
void* corre(void* v) {
  ordenaTudo(*static_cast<LISTA*>(v));
  return nullptr;
}

void ordenaEmPilhaCurta(LISTA& v) {
  pthread_attr_t atributos;
  pthread_attr_init(&atributos);
  ASSERT_EQ(pthread_attr_setstacksize(&atributos, std::size_t{256} << 10U), 0);
  pthread_t fio{};
  ASSERT_EQ(pthread_create(&fio, &atributos, corre, &v), 0);
  pthread_join(fio, nullptr);
  pthread_attr_destroy(&atributos);
}

// Correlations on which the quicksort takes off few elements at a time: the values are fixed
// only when two of them are compared, always so that the pivot is nearly the best left.
std::vector<float> adversario(int n) {
  std::vector<int> valor(static_cast<std::size_t>(n), -1);  // -1: not yet fixed, worse than all
  std::vector<int> itens(valor.size());
  for (int i = 0; i < n; ++i) itens[static_cast<std::size_t>(i)] = i;
  int fixados = 0;
  int candidato = 0;
  const auto de = [&](int i) -> int& { return valor[static_cast<std::size_t>(i)]; };
  const auto maior = [&](int a, int b) {
    if (de(a) < 0 && de(b) < 0) (a == candidato ? de(a) : de(b)) = fixados++;
    if (de(a) < 0) candidato = a;
    if (de(b) < 0) candidato = b;
    const int x = de(a) < 0 ? n : de(a);
    const int y = de(b) < 0 ? n : de(b);
    return x < y;
  };
  referencia::quicksort(itens, 0, n - 1, maior);
  std::vector<float> correls;
  for (const int x : valor) correls.push_back(static_cast<float>(-(x < 0 ? n : x)));
  return correls;
}

}  // namespace

TEST(Ordena, ListasSorteadasComEmpatesFicamNaOrdemDoAlgoritmo) {
  constexpr unsigned semente = 35000;
  SCOPED_TRACE(semente);
  std::mt19937 g(semente);
  for (int vez = 0; vez < 3000; ++vez) {
    const unsigned valores = 1 + static_cast<unsigned>(g() % 40);
    std::vector<float> correls(1 + g() % (vez % 100 == 0 ? 5000 : 70));
    for (float& x : correls) x = static_cast<float>(g() % valores) / 16.0F - 1.0F;
    LISTA v = lista(correls);
    LISTA literal = v;
    ordenaTudo(v);
    referencia::ordena(literal, 0, static_cast<int>(literal.size()) - 1);
    ASSERT_EQ(primeiraDiferenca(v, literal), -1) << "lista " << vez;
  }
}

TEST(Ordena, FaixaInternaNaoTocaORestoDaLista) {
  constexpr unsigned semente = 35001;
  SCOPED_TRACE(semente);
  std::mt19937 g(semente);
  for (int vez = 0; vez < 300; ++vez) {
    std::vector<float> correls(50);
    for (float& x : correls) x = static_cast<float>(g() % 9);
    LISTA v = lista(correls);
    LISTA literal = v;
    const int l = static_cast<int>(g() % 50);
    const int r = l + static_cast<int>(g() % static_cast<unsigned>(50 - l));
    ordena(v, l, r);
    referencia::ordena(literal, l, r);
    ASSERT_EQ(primeiraDiferenca(v, literal), -1) << l << ".." << r;
  }
}

TEST(Ordena, UmElementoFicaComoEsta) {
  LISTA v = lista({0.5F});
  ordena(v, 0, 0);
  EXPECT_TRUE(iguais(v[0], lista({0.5F})[0]));
}

TEST(Ordena, DecrescentePorCorrelacao) {
  LISTA v = lista({0.25F, -1.0F, 0.75F, 0.5F});
  ordenaTudo(v);
  EXPECT_EQ(v[0].li, 2);
  EXPECT_EQ(v[1].li, 3);
  EXPECT_EQ(v[2].li, 0);
  EXPECT_EQ(v[3].li, 1);
}

TEST(Ordena, NaoEhEstavel) {
  LISTA v = lista({0.5F, 0.5F});
  ordenaTudo(v);
  EXPECT_EQ(v[0].li, 1);  // the partition swaps equal elements
  EXPECT_EQ(v[1].li, 0);
}

TEST(Ordena, UmMilhaoDeElementosEmOrdensSimples) {
  constexpr int n = 1000000;
  const auto confere = [](const char* nome, auto valor) {
    std::vector<float> correls;
    for (int i = 0; i < n; ++i) correls.push_back(static_cast<float>(valor(i)));
    LISTA v = lista(correls);
    ordenaEmPilhaCurta(v);
    EXPECT_TRUE(emOrdem(v)) << nome;
    EXPECT_TRUE(cadaUmUmaVez(v)) << nome;
  };
  std::mt19937 g(35002);
  confere("crescente", [](int i) { return i; });
  confere("decrescente", [](int i) { return -i; });
  confere("todos iguais", [](int) { return 1; });
  confere("sorteada", [&](int) { return g() % 100000; });
}

TEST(Ordena, OrgaoDeTubosNaoEstouraAPilha) {
  constexpr int n = 20000;
  for (const int sinal : {1, -1}) {
    std::vector<float> correls;
    for (int i = 0; i < n; ++i) correls.push_back(static_cast<float>(sinal * std::min(i, n - i)));
    LISTA v = lista(correls);
    LISTA literal = v;
    ordenaEmPilhaCurta(v);
    referencia::ordena(literal, 0, n - 1);
    EXPECT_EQ(primeiraDiferenca(v, literal), -1) << sinal;
  }
}

TEST(Ordena, EntradaAdversaNaoEstouraAPilha) {
  constexpr int n = 20000;
  LISTA v = lista(adversario(n));
  LISTA literal = v;
  ordenaEmPilhaCurta(v);
  referencia::ordena(literal, 0, n - 1);
  EXPECT_EQ(primeiraDiferenca(v, literal), -1);
  EXPECT_TRUE(emOrdem(v));
}

TEST(Ordena, FaixaVaziaFalhaNaAssercao) {
  LISTA v;
  EXPECT_EQ(assercaoDe([&] { ordena(v, 0, -1); }),
            "vorplex:558: void ordena(std::vector<MAXLOCAL>&, int, int): "
            "Assertion `l<=r' failed.");
}
