#include "linha/linha.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>

#include "apura/tabela.h"
#include "batch/pedido/tabela.h"
#include "linha/ajuda.h"
#include "linha/geral.h"
#include "linha/parecidas.h"

using exporta::IDIOMA;
using namespace linha;

namespace {

using TEXTOS = std::vector<std::string>;

const std::vector<PROGRAMA> programas = {apura::programa, batch::programa};

TEST(Distancia, ContaLetrasPostasTiradasTrocadasECruzadas) {
  EXPECT_EQ(distancia("", ""), 0U);
  EXPECT_EQ(distancia("", "abc"), 3U);
  EXPECT_EQ(distancia("saida", "saida"), 0U);
  EXPECT_EQ(distancia("sada", "saida"), 1U);
  EXPECT_EQ(distancia("saiida", "saida"), 1U);
  EXPECT_EQ(distancia("sayda", "saida"), 1U);
  EXPECT_EQ(distancia("sadia", "saida"), 1U);
  EXPECT_EQ(distancia("kitten", "sitting"), 3U);
}

TEST(Parecidas, SoAsMaisPertoESePertoBastante) {
  EXPECT_EQ(parecidas("sadia", {"saida", "escala"}), TEXTOS{"saida"});
  EXPECT_EQ(parecidas("nada", {"saida", "escala"}), TEXTOS{});
  EXPECT_EQ(parecidas("ab", {"ac", "bb", "cd"}), (TEXTOS{"ac", "bb"}));
  EXPECT_EQ(parecidas("", {"a"}), TEXTOS{});
  EXPECT_EQ(parecidas(std::string(100000, 'x'), {"saida"}), TEXTOS{});
}

// Names that two options share could never be told apart.
TEST(Tabelas, CadaNomeECadaLetraEhDeUmaOpcaoSo) {
  for (const PROGRAMA& p : programas) {
    std::set<std::string> nomes;
    std::set<int> letras;
    for (const OPCAO& o : opcoesDe(p)) {
      EXPECT_TRUE(letras.insert(o.letra).second) << p.nome << ' ' << o.letra;
      EXPECT_TRUE(nomes.insert(o.pt).second) << p.nome << ' ' << o.pt;
      if (std::string(o.pt) != o.en) {
        EXPECT_TRUE(nomes.insert(o.en).second) << o.en;
      }
      EXPECT_NE(o.ajuda.pt, nullptr) << o.pt;
      EXPECT_NE(o.ajuda.en, nullptr) << o.pt;
      EXPECT_EQ(o.valor.pt == nullptr, o.valor.en == nullptr) << o.pt;
    }
  }
}

TEST(Ajuda, MostraCadaOpcaoNaSuaLinguaEm80Colunas) {
  for (const PROGRAMA& p : programas) {
    for (const IDIOMA i : {IDIOMA::pt, IDIOMA::en}) {
      const std::string texto = ajuda(p, i);
      for (const OPCAO& o : opcoesDe(p)) {
        EXPECT_NE(texto.find(semAcentos(rotulo(o, i))), std::string::npos) << o.pt;
      }
      std::size_t de = 0;
      for (std::size_t ate = 0; (ate = texto.find('\n', de)) != std::string::npos; de = ate + 1) {
        EXPECT_LE(ate - de, 80U) << texto.substr(de, ate - de);
      }
      EXPECT_EQ(de, texto.size());
      for (const char c : texto) EXPECT_TRUE(c == '\n' || (c >= ' ' && c <= '~')) << texto;
    }
  }
}

TEST(SemAcentos, TiraOsDoPortugues) {
  EXPECT_EQ(semAcentos("opções à mão, ênfase, Ângulo"), "opcoes a mao, enfase, Angulo");
}

struct AMBIENTE {
  const char* todas;
  const char* mensagens;
  const char* lang;
  IDIOMA idioma;
};

void poe(const char* nome, const char* valor) {
  if (valor == nullptr) {
    unsetenv(nome);
  } else {
    setenv(nome, valor, 1);
  }
}

TEST(IdiomaDoAmbiente, OPrimeiroQueDizAlgoVale) {
  const std::vector<AMBIENTE> casos = {
      {nullptr, nullptr, nullptr, IDIOMA::pt},      {"", "", "", IDIOMA::pt},
      {"C", nullptr, "en_US.UTF-8", IDIOMA::pt},    {nullptr, nullptr, "C.UTF-8", IDIOMA::pt},
      {nullptr, "POSIX", "en_US", IDIOMA::pt},      {nullptr, nullptr, "en_US.UTF-8", IDIOMA::en},
      {nullptr, nullptr, "de_DE@euro", IDIOMA::en}, {"pt_PT.UTF-8", "en_US", "en_US", IDIOMA::pt},
      {"", "en_GB", "pt_BR", IDIOMA::en},           {nullptr, "pt", "en", IDIOMA::pt},
      {nullptr, nullptr, "cs_CZ", IDIOMA::en}};
  for (const AMBIENTE& a : casos) {
    poe("LC_ALL", a.todas);
    poe("LC_MESSAGES", a.mensagens);
    poe("LANG", a.lang);
    EXPECT_EQ(idiomaDoAmbiente(), a.idioma) << (a.lang == nullptr ? "" : a.lang);
  }
}

TEST(LeOpcoesDaTabela, UmPedacoDoNomeBastaSeForUmSo) {
  TEXTOS palavras = {"p", "--fam=c", "nome", "--sens", "1"};
  TEXTOS vistas;
  const RECUSA r = leOpcoes(palavras, apura::programa, [&](const OPCAO& o, const std::string& v) {
    vistas.push_back(std::string(o.pt) + '=' + v);
    return static_cast<const FRASE*>(nullptr);
  });
  EXPECT_EQ(motivo(r, IDIOMA::pt), "");
  EXPECT_EQ(vistas, (TEXTOS{"familias=c", "sensibilidade=1"}));
  EXPECT_EQ(palavras, TEXTOS{"nome"});
}

}  // namespace
