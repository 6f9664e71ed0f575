#include "detect/vizinhanca.h"

#include <gtest/gtest.h>

#include <climits>
#include <random>

#include "detect/ordenacao.h"
#include "referencia/proximos.h"

namespace {

constexpr unsigned sementeDeListas = 21;

bool iguais(const std::vector<MAXLOCAL>& a, const std::vector<MAXLOCAL>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& x, const auto& y) {
    return x.correl == y.correl && x.forma == y.forma && x.li == y.li && x.ci == y.ci &&
           x.d1 == y.d1;
  });
}

// A list in decreasing order with few distinct correlations, so that ties abound.
std::vector<MAXLOCAL> listaComEmpates(std::mt19937& g, int n, int lado, int valores) {
  std::vector<MAXLOCAL> v;
  for (int i = 0; i < n; ++i) {
    MAXLOCAL m;
    m.correl = static_cast<float>(g() % static_cast<unsigned>(valores)) / 10.0F;
    m.forma = "cqrex"[g() % 5];
    m.li = static_cast<int>(g() % static_cast<unsigned>(lado)) - lado / 2;
    m.ci = static_cast<int>(g() % static_cast<unsigned>(lado)) - lado / 2;
    m.d1 = i;
    v.push_back(m);
  }
  ordena(v, 0, n - 1);
  return v;
}

}  // namespace

TEST(EliminaProximoRapido, IgualAFormaSimplesInclusiveNosEmpates) {
  std::mt19937 g(sementeDeListas);
  for (int vez = 0; vez < 300; ++vez) {
    const int n = static_cast<int>(g() % 300) + 1;
    const int lado = static_cast<int>(g() % 60) + 1;
    const auto v = listaComEmpates(g, n, lado, static_cast<int>(g() % 20) + 1);
    const int maxDist = static_cast<int>(g() % 6) - 1;
    std::vector<MAXLOCAL> rapido;
    std::vector<MAXLOCAL> simples;
    eliminaProximo(v, rapido, maxDist);
    referencia::eliminaProximo(v, simples, maxDist);
    ASSERT_TRUE(iguais(rapido, simples)) << "vez " << vez << " maxDist " << maxDist;
  }
}

TEST(EliminaProximoRapido, CoordenadasNosExtremosDoInteiro) {
  std::vector<MAXLOCAL> v;
  for (const int l : {INT_MIN, INT_MIN + 1, -1, 0, INT_MAX - 1, INT_MAX}) {
    for (const int c : {INT_MIN, INT_MIN + 2, 0, INT_MAX}) {
      v.push_back({0.5F, c == 0 ? 'c' : 'e', l, c, 1, 1, 0});
    }
  }
  for (const int maxDist : {0, 1, 2, 1000, INT_MAX}) {
    std::vector<MAXLOCAL> rapido;
    std::vector<MAXLOCAL> simples;
    eliminaProximo(v, rapido, maxDist);
    referencia::eliminaProximo(v, simples, maxDist);
    EXPECT_TRUE(iguais(rapido, simples)) << maxDist;
  }
}

TEST(EliminaProximoRapido, ListaEsparsaNaoPedeTabelaDoTamanhoDoPlano) {
  std::mt19937 g(sementeDeListas);
  auto v = listaComEmpates(g, 2000, 100, 5);
  v[7].li = INT_MAX;  // the plane is now a billion rows high
  v[9].ci = INT_MIN;
  std::vector<MAXLOCAL> rapido;
  std::vector<MAXLOCAL> simples;
  eliminaProximo(v, rapido, 2);
  referencia::eliminaProximo(v, simples, 2);
  EXPECT_TRUE(iguais(rapido, simples));
}

TEST(OrdenaPorChaves, IgualATrocaDeRegistrosInteiros) {
  std::mt19937 g(sementeDeListas);
  for (int vez = 0; vez < 300; ++vez) {
    const int n = static_cast<int>(g() % 400) + 1;
    std::vector<MAXLOCAL> a = listaComEmpates(g, n, 50, 7);
    std::shuffle(a.begin(), a.end(), g);
    std::vector<MAXLOCAL> b = a;
    const int l = static_cast<int>(g() % static_cast<unsigned>(n));
    const int r = l + static_cast<int>(g() % static_cast<unsigned>(n - l));
    ordena(a, l, r);
    referencia::ordena(b, l, r);
    ASSERT_TRUE(iguais(a, b)) << "n=" << n << " l=" << l << " r=" << r;
  }
}
