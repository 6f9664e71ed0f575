#include <gtest/gtest.h>

#include <algorithm>
#include <new>
#include <random>
#include <set>

#include "apoio/erros.h"
#include "filter/filtinter.h"
#include "filter/ocupacao.h"
#include "filter/silhueta.h"
#include "referencia/filtro.h"

namespace {

constexpr unsigned sementeDeListas = 22;

std::vector<MAXLOCAL> lista(std::mt19937& g, int n, int lado) {
  std::uniform_real_distribution<double> tamanho(3, 14);
  std::uniform_int_distribution<int> lugar(-4, lado + 4);
  std::vector<MAXLOCAL> v;
  for (int i = 0; i < n; ++i) {
    const double correl = 1 - i / static_cast<double>(n);
    v.push_back({static_cast<float>(correl), "cqrex"[g() % 5], lugar(g), lugar(g), tamanho(g),
                 tamanho(g), static_cast<double>(g() % 18) * 10});
  }
  return v;
}

// Whether `silhueta` marks exactly the zeros of the mask.
void confereSilhueta(const cv::Mat_<unsigned char>& mascara) {
  const SILHUETA s = silhueta(mascara);
  cv::Mat_<unsigned char> refeita(mascara.size(), 255);
  for (const auto& t : s.trechos) {
    for (int c = t.de; c <= t.ate; ++c) refeita(t.linha + s.rows / 2, c + s.cols / 2) = 0;
  }
  EXPECT_EQ(cv::countNonZero(refeita != mascara), 0);
  EXPECT_EQ(s.pixels, static_cast<int>(mascara.total()) - cv::countNonZero(mascara));
}

}  // namespace

TEST(FiltroRapido, IgualAFormaSimplesEmListasSorteadas) {
  std::mt19937 g(sementeDeListas);
  std::size_t retirados = 0;
  for (int vez = 0; vez < 60; ++vez) {
    const int lado = 30 + static_cast<int>(g() % 60);
    auto v = lista(g, 150, lado);
    const double inter = static_cast<double>(g() % 10) / 10;
    const LIMIARES limiares = {{0.1, inter}, {0.1, inter / 2}, {0.1, 0.2}, {0.1, 0.3}};
    std::vector<MAXLOCAL> rapido;
    std::vector<MAXLOCAL> simples;
    filtInter(v, rapido, {lado, lado}, limiares);
    referencia::filtInter(v, simples, {lado, lado}, limiares);
    ASSERT_EQ(rapido.size(), simples.size()) << vez;
    for (std::size_t i = 0; i < rapido.size(); ++i) {
      ASSERT_EQ(rapido[i].correl, simples[i].correl) << vez;
    }
    retirados += v.size() - rapido.size();
  }
  EXPECT_GT(retirados, 1000U);
}

TEST(Ocupacao, ContaOcupadasEDeOutrosComoUmaPilhaPorPixel) {
  constexpr int linhas = 3;
  constexpr int colunas = 150;
  std::mt19937 g(sementeDeListas);
  OCUPACAO o(linhas, colunas);
  std::vector<std::vector<int>> pilhas(linhas * colunas);
  for (int vez = 0; vez < 20000; ++vez) {
    const int l = static_cast<int>(g() % linhas);
    const int de = static_cast<int>(g() % colunas);
    const int ate = std::min(colunas - 1, de + static_cast<int>(g() % 140));
    const bool poe = g() % 2 == 0;
    const int i = static_cast<int>(g() % 4);
    if (poe) o.acrescenta(l, de, ate, i);
    int ocupadas = 0;
    int deOutros = 0;
    std::vector<int> esperados;
    for (int c = de; c <= ate; ++c) {
      auto& pilha = pilhas[static_cast<std::size_t>(l * colunas + c)];
      if (poe) {
        pilha.push_back(i);
      } else {
        o.retira(l, c, pilha.empty() ? 99 : pilha.back());  // an empty cell stays empty
        if (!pilha.empty()) pilha.pop_back();
      }
      ocupadas += pilha.empty() ? 0 : 1;
      deOutros += pilha.size() >= 2 || (pilha.size() == 1 && pilha[0] != 2) ? 1 : 0;
      esperados.insert(esperados.end(), pilha.begin(), pilha.end());
    }
    std::vector<int> junto;
    o.junta(l, de, ate, junto);
    ASSERT_EQ(o.ocupadas(l, de, ate), ocupadas);
    ASSERT_EQ(o.deOutros(l, de, ate, 2), deOutros);
    ASSERT_EQ(std::set<int>(junto.begin(), junto.end()),
              std::set<int>(esperados.begin(), esperados.end()));
  }
}

TEST(Ocupacao, IndicesDemaisSaoMemoriaInsuficiente) {
  OCUPACAO o(1, 10, 15);
  o.acrescenta(0, 0, 9, 0);  // the first of each cell needs no memory
  o.acrescenta(0, 0, 9, 1);
  EXPECT_THROW(o.acrescenta(0, 0, 9, 2), std::bad_alloc);
}

TEST(Ocupacao, RetirarOIndiceErradoOuForaDaGradeAborta) {
  OCUPACAO o(2, 2);
  o.acrescenta(1, 1, 1, 5);
  EXPECT_EQ(
      assercaoSemLinha([&] { o.retira(1, 1, 4); }),
      "vorplex: void filtInter(std::vector<MAXLOCAL>&, std::vector<MAXLOCAL>&, cv::Size, double, "
      "double, double, double, double, double, double, double): Assertion `t.back()==int(wi)' "
      "failed.");
  EXPECT_EQ(assercaoSemLinha([&] { o.retira(2, 0, 4); }), foraDaGrade);
}

TEST(Silhueta, MarcaOsZerosDaMascara) {
  std::mt19937 g(sementeDeListas);
  for (const MAXLOCAL& m : lista(g, 100, 50)) {
    cv::Mat_<unsigned char> mascara;
    mascaraMaxLocal(m, mascara);
    if (!mascara.empty()) confereSilhueta(mascara);
  }
  cv::Mat_<unsigned char> furada(5, 7);
  for (unsigned char& p : furada) p = g() % 2 == 0 ? 0 : 255;
  confereSilhueta(furada);
}

TEST(Silhueta, EhADaMascaraParaQualquerForma) {
  std::mt19937 g(31);
  std::uniform_real_distribution<double> tamanho(-3, 60);
  std::uniform_real_distribution<double> angulo(-400, 400);
  SILHUETAS guardadas;
  for (int vez = 0; vez < 2000; ++vez) {
    const MAXLOCAL m = {0, "cqrex"[g() % 5], 0, 0, tamanho(g), tamanho(g), angulo(g)};
    cv::Mat_<unsigned char> mascara;
    mascaraMaxLocal(m, mascara);
    const SILHUETA esperada = silhueta(mascara);
    const SILHUETA& s = guardadas.de(m);
    const auto quem = testing::Message() << m.forma << ' ' << m.d1 << ' ' << m.d2 << ' ' << m.ang;
    ASSERT_EQ(s.rows, esperada.rows) << quem;
    ASSERT_EQ(s.cols, esperada.cols) << quem;
    ASSERT_EQ(s.pixels, esperada.pixels) << quem;
    ASSERT_TRUE(std::equal(s.trechos.begin(), s.trechos.end(), esperada.trechos.begin(),
                           esperada.trechos.end(),
                           [](const SILHUETA::TRECHO& a, const SILHUETA::TRECHO& b) {
                             return a.linha == b.linha && a.de == b.de && a.ate == b.ate;
                           }))
        << quem;
  }
}

TEST(Silhueta, FormasGuardadasNaoSeConfundem) {
  SILHUETAS guardadas;
  const std::vector<MAXLOCAL> formas = {{0, 'r', 0, 0, 12, 6, 0},
                                        {0, 'r', 0, 0, 12, 6, 30},
                                        {0, 'r', 0, 0, 6, 12, 0},
                                        {0, 'e', 0, 0, 12, 6, 0},
                                        {0, 'x', 0, 0, 12, 6, 0}};
  for (int vez = 0; vez < 2; ++vez) {
    for (const MAXLOCAL& m : formas) {
      cv::Mat_<unsigned char> mascara;
      mascaraMaxLocal(m, mascara);
      const SILHUETA esperada = silhueta(mascara);
      const SILHUETA& s = guardadas.de(m);
      ASSERT_EQ(s.trechos.size(), esperada.trechos.size());
      for (std::size_t i = 0; i < s.trechos.size(); ++i) {
        EXPECT_EQ(s.trechos[i].de, esperada.trechos[i].de);
        EXPECT_EQ(s.trechos[i].ate, esperada.trechos[i].ate);
      }
    }
  }
}
