#include "report/relat.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include "apoio/erros.h"
#include "apoio/figuras.h"
#include "apoio/pasta.h"

namespace {

using TABELA = std::map<double, int>;

MAXLOCAL forma(char letra, double d1, double d2 = 0) {
  return {0.5F, letra, 10, 10, d1, d2, 0};
}

TEST(ContaAreas, CirculoDeDiametro1TemArea1EDe10Area79) {
  EXPECT_EQ(contaAreas({forma('c', 1), forma('c', 10)}).circulos, (TABELA{{1, 1}, {79, 1}}));
}

TEST(ContaAreas, AreasQueArredondamIgualSomamNaMesmaLinha) {
  EXPECT_EQ(contaAreas({forma('c', 20), forma('c', 20.001)}).circulos, (TABELA{{314, 2}}));
}

TEST(ContaAreas, QuadradosERetangulosFicamJuntos) {
  const TABELAS t = contaAreas({forma('q', 20, 20), forma('r', 10, 40)});
  EXPECT_EQ(t.retangulos, (TABELA{{400, 2}}));
  EXPECT_TRUE(t.circulos.empty());
}

TEST(ContaAreas, MetadeExataVaiParaOPar) {
  const TABELAS t = contaAreas({forma('r', 2.5, 1), forma('r', 3.5, 1), forma('r', 0.5, 1),
                                forma('r', -2.5, 1), forma('r', -1.5, 1)});
  EXPECT_EQ(t.retangulos, (TABELA{{-2, 2}, {0, 1}, {2, 1}, {4, 1}}));
}

TEST(ContaAreas, OQuadradoUsaOsDoisTamanhos) {
  EXPECT_EQ(contaAreas({forma('q', 20, 5)}).retangulos, (TABELA{{100, 1}}));
}

TEST(ContaAreas, ElipsesELetrasDesconhecidasFicamDeFora) {
  const TABELAS t = contaAreas({forma('e', 20, 20), forma('x', 20, 20), forma('C', 20, 20)});
  EXPECT_TRUE(t.circulos.empty());
  EXPECT_TRUE(t.retangulos.empty());
}

TEST(ContaAreas, TamanhosNulosENegativosContamComoSao) {
  const TABELAS t = contaAreas(
      {forma('r', 0, 9), forma('r', -3, 4), forma('r', -0.1, 0.1), forma('c', -20), forma('c', 0)});
  EXPECT_EQ(t.retangulos, (TABELA{{-12, 1}, {0, 2}}));
  EXPECT_EQ(t.circulos, (TABELA{{0, 1}, {314, 1}}));
  const TABELAS quaseNada = contaAreas({forma('r', -0.1, 0.1)});
  EXPECT_FALSE(std::signbit(quaseNada.retangulos.begin()->first));  // not written as "-0"
}

TEST(ContaAreas, AreaQueNaoCabeEm32BitsEhErroQueDizARegistro) {
  EXPECT_EQ(contaAreas({forma('r', 2147483647, 1), forma('r', -2147483648, 1)}).retangulos.size(),
            2U);
  EXPECT_EQ(erroDe([&] { contaAreas({forma('r', 65536, 32768)}); }),
            "Erro: Area fora do intervalo r 65536 32768");
  EXPECT_EQ(erroDe([&] { contaAreas({forma('c', std::numeric_limits<double>::quiet_NaN(), 3)}); }),
            "Erro: Area fora do intervalo c nan 3");
  EXPECT_EQ(erroDe([&] {
              contaAreas({forma('c', 3), forma('q', 1e9, 1e9)}, "a.ho2");
            }),
            "Erro: Area fora do intervalo q 1e+09 1e+09 (a.ho2, registro 1)");
}

// Rounds by looking at what is left over.
double arredondado(double x) {
  const double piso = std::floor(x);
  const double resto = x - piso;
  if (resto != 0.5) return resto < 0.5 ? piso : piso + 1;
  return std::fmod(piso, 2) == 0 ? piso : piso + 1;
}

TEST(ContaAreas, IgualAContagemIngenuaEmListasSorteadas) {
  constexpr unsigned semente = 20611;
  std::mt19937 sorteio(semente);
  for (int caso = 0; caso < 200; ++caso) {
    SCOPED_TRACE(cv::format("semente %u caso %d", semente, caso));
    std::vector<MAXLOCAL> v;
    for (int i = sorteia(sorteio, 0, 60); i > 0; --i) {
      v.push_back(forma("cqrex"[sorteia(sorteio, 0, 4)], sorteia(sorteio, -4, 40) * 0.5,
                        sorteia(sorteio, -4, 40) * 0.5));
    }
    std::vector<double> areas[2];
    for (const MAXLOCAL& m : v) {
      if (m.forma == 'c') areas[0].push_back(arredondado(m.d1 * m.d1 * 3.141592653589793 / 4));
      if (m.forma == 'q' || m.forma == 'r') areas[1].push_back(arredondado(m.d1 * m.d2));
    }
    const TABELAS t = contaAreas(v);
    const TABELA* tabelas[] = {&t.circulos, &t.retangulos};
    for (int k = 0; k < 2; ++k) {
      std::size_t soma = 0;
      for (const auto& [area, quantos] : *tabelas[k]) {
        ASSERT_EQ(std::count(areas[k].begin(), areas[k].end(), area), quantos) << area;
        soma += static_cast<std::size_t>(quantos);
      }
      ASSERT_EQ(soma, areas[k].size());
    }
  }
}

TEST(ImpTabelas, DoisTitulosEDoisCabecalhosMesmoVazias) {
  const PASTA pasta;
  impTabelas({}, "vazia.rel");
  EXPECT_EQ(leTudo("vazia.rel"),
            "Circulos:\n  area  quant\nRetangulos e quadrados:\n  area  quant\n");
}

TEST(ImpTabelas, LinhasEmOrdemCrescenteComColunasQueAlargam) {
  const PASTA pasta;
  impTabelas({{{1257, 1}, {314, 2}}, {{1000000, 3}, {-12, 1234567}, {400, 1}}}, "a.rel");
  EXPECT_EQ(leTudo("a.rel"),
            "Circulos:\n"
            "  area  quant\n"
            "   314      2\n"
            "  1257      1\n"
            "Retangulos e quadrados:\n"
            "  area  quant\n"
            "   -12 1234567\n"
            "   400      1\n"
            "1000000      3\n");
}

TEST(ImpTabelas, SubstituiORelatorioAnterior) {
  const PASTA pasta;
  grava("a.rel", std::string(5000, 'x'));
  impTabelas({}, "a.rel");
  EXPECT_EQ(leTudo("a.rel").size(), 62U);
}

TEST(ImpTabelas, ArquivoQueNaoAbreOuNaoCabeEhErro) {
  const PASTA pasta;
  EXPECT_EQ(erroDe([&] { impTabelas({}, "sem/a.rel"); }), "Erro abertura sem/a.rel");
  EXPECT_EQ(erroDe([&] { impTabelas({}, "."); }), "Erro abertura .");
  EXPECT_EQ(erroDe([&] { impTabelas({}, "/dev/full"); }), "Erro gravacao arquivo /dev/full");
}

}  // namespace
