#include "pim/listagem.h"

#include <filesystem>
#include <random>

#include "apoio/pasta.h"
#include "fabrica.h"

namespace {

// Straight from the definition: `*` takes nothing, or one character and goes on.
bool casaLento(const std::string& p, std::size_t i, const std::string& n, std::size_t j) {
  if (i == p.size()) return j == n.size();
  if (p[i] == '*') {
    return casaLento(p, i + 1, n, j) || (j < n.size() && casaLento(p, i, n, j + 1));
  }
  return j < n.size() && p[i] == n[j] && casaLento(p, i + 1, n, j + 1);
}

std::string sorteia(std::mt19937& sorteio, const std::string& letras, unsigned maximo) {
  std::string s;
  for (auto k = sorteio() % (maximo + 1); k > 0; --k) s += letras[sorteio() % letras.size()];
  return s;
}

}  // namespace

TEST(Casa, EstrelaTomaQualquerSequenciaInclusiveNenhuma) {
  EXPECT_TRUE(pim::casa("*.ho2", "a.ho2"));
  EXPECT_TRUE(pim::casa("*.ho2", ".ho2"));
  EXPECT_TRUE(pim::casa("*", ""));
  EXPECT_TRUE(pim::casa("", ""));
  EXPECT_TRUE(pim::casa("a*b*c", "a.b.b.c"));
  EXPECT_FALSE(pim::casa("*.ho2", "a.ho2x"));
  EXPECT_FALSE(pim::casa("*.ho2", "aho2"));
  EXPECT_FALSE(pim::casa("", "a"));
  EXPECT_FALSE(pim::casa("*.ho2", "a.HO2"));
}

TEST(Casa, OutrosSinaisValemPorSi) {
  EXPECT_FALSE(pim::casa("a?c", "abc"));
  EXPECT_TRUE(pim::casa("a?c", "a?c"));
  EXPECT_FALSE(pim::casa("[ab]", "a"));
  EXPECT_FALSE(pim::casa("a.c", "abc"));
}

TEST(Casa, IgualAoCasadorRecursivoEmPadroesSorteados) {
  SCOPED_TRACE("seed 4711");
  std::mt19937 sorteio(4711);
  int casados = 0;
  for (int vez = 0; vez < 20000; ++vez) {
    const std::string padrao = sorteia(sorteio, "aab*.", 7);
    const std::string nome = sorteia(sorteio, "ab.*", 9);
    const bool certo = casaLento(padrao, 0, nome, 0);
    casados += certo ? 1 : 0;
    ASSERT_EQ(pim::casa(padrao, nome), certo) << padrao << " | " << nome;
  }
  EXPECT_GT(casados, 1000);
}

TEST(Casa, PadraoMaliciosoTerminaDepressa) {
  std::string padrao;
  for (int k = 0; k < 60; ++k) padrao += "a*";
  EXPECT_FALSE(pim::casa(padrao + "b", std::string(20000, 'a')));
}

TEST(VsWildCard, DaOsArquivosDaPastaCorrenteEmOrdem) {
  const PASTA pasta;
  for (const char* nome : {"b.ho2", "a.ho2", "B.ho2", "x y.ho2", "a.ho1", ".ho2", "a.ho2.bak"}) {
    grava(nome, "");
  }
  std::filesystem::create_directory("pasta.ho2");
  std::filesystem::create_symlink("a.ho1", "elo.ho2");
  std::filesystem::create_symlink("nada", "quebrado.ho2");
  std::vector<std::string> nomes = {"velho"};
  pim::vsWildCard("*.ho2", nomes, false);
  EXPECT_EQ(nomes,
            (std::vector<std::string>{".ho2", "B.ho2", "a.ho2", "b.ho2", "elo.ho2", "x y.ho2"}));
  pim::vsWildCard("p*", nomes, true);
  EXPECT_EQ(nomes, std::vector<std::string>{"pasta.ho2"});
}

TEST(VsWildCard, PastaSemNomesQueCasamDaListaVazia) {
  const PASTA pasta;
  std::vector<std::string> nomes = {"velho"};
  pim::vsWildCard("*.ho2", nomes, false);
  EXPECT_TRUE(nomes.empty());
}
