#include "measure/distribuicao.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "apoio/figuras.h"
#include "measure/folkward.h"

using namespace measure;

namespace {

std::vector<MEDIDA> tamanhos(const std::vector<double>& v) {
  std::vector<MEDIDA> medidas;
  for (const double x : v) medidas.push_back({x, 1});
  return medidas;
}

std::vector<MEDIDA> sorteadas(std::mt19937& sorteio, int n) {
  std::vector<MEDIDA> v;
  for (int i = 0; i < n; ++i) {
    v.push_back({sorteia(sorteio, 1, 60) * 0.37, sorteia(sorteio, 1, 1000) * 0.013});
  }
  return v;
}

// All numbers of a distribution; a missing one as a value that no distribution has.
std::vector<double> numeros(const DISTRIBUICAO& d) {
  std::vector<std::optional<double>> v(d.d.begin(), d.d.end());
  v.insert(v.end(), {d.media, d.desvio, d.mediaPhi, d.selecao, d.assimetria, d.curtose,
                     d.uniformidade, d.curvatura});
  std::vector<double> n;
  for (const auto& x : v) n.push_back(x.value_or(-1e300));
  return n;
}

TEST(Percentil, QuatroGraosIguaisEmPeso) {
  const CURVA c = curva(tamanhos({40, 10, 30, 20}));
  EXPECT_EQ(c.acumulada, (std::vector<double>{0.125, 0.375, 0.625, 0.875}));
  EXPECT_EQ(percentil(c, 50), 25);
  EXPECT_EQ(percentil(c, 12.5), 10);
  EXPECT_EQ(percentil(c, 37.5), 20);
  EXPECT_EQ(percentil(c, 75), 35);
}

TEST(Percentil, ForaDosGraosValeOMenorOuOMaior) {
  const CURVA c = curva(tamanhos({10, 20, 30, 40}));
  EXPECT_EQ(percentil(c, 0), 10);
  EXPECT_EQ(percentil(c, 5), 10);
  EXPECT_EQ(percentil(c, 95), 40);
  EXPECT_EQ(percentil(c, 100), 40);
}

TEST(Percentil, OPesoPuxaParaOGraoPesado) {
  const CURVA c = curva({{10, 1}, {20, 3}});
  EXPECT_EQ(c.acumulada, (std::vector<double>{0.125, 0.625}));
  EXPECT_EQ(percentil(c, 62.5), 20);
  EXPECT_DOUBLE_EQ(*percentil(c, 50), 17.5);
}

TEST(Percentil, TamanhosRepetidosDaoUmPatamar) {
  const CURVA c = curva(tamanhos({10, 20, 20, 20, 30}));
  for (const double p : {30.0, 40.0, 50.0, 70.0}) EXPECT_EQ(percentil(c, p), 20) << p;
  EXPECT_GT(*percentil(c, 75), 20);
  EXPECT_LT(*percentil(c, 25), 20);
}

TEST(Percentil, CresceComP) {
  std::mt19937 sorteio(20411);
  for (int caso = 0; caso < 100; ++caso) {
    const CURVA c = curva(sorteadas(sorteio, 1 + caso));
    double anterior = 0;
    for (double p = 0; p <= 100; p += 0.25) {
      const double x = *percentil(c, p);
      ASSERT_GE(x, anterior) << caso << ' ' << p;
      anterior = x;
    }
  }
}

TEST(Percentil, PesoMinusculoNaoEstraga) {
  const CURVA c = curva({{10, 1e-30}, {15, 1}, {20, 1e-30}, {30, 1}});
  EXPECT_EQ(percentil(c, 25), 15);
  EXPECT_EQ(percentil(c, 0), 10);
  EXPECT_EQ(percentil(c, 75), 30);
}

TEST(Distribui, NenhumGraoNaoDaNumero) {
  const DISTRIBUICAO d = distribui(curva({}), UNIDADE::mm);
  EXPECT_EQ(d.graos, 0U);
  for (const double x : numeros(d)) EXPECT_EQ(x, -1e300);
  EXPECT_FALSE(percentil(curva({}), 50).has_value());
}

TEST(Distribui, UmGraoEhTodosOsPercentis) {
  const DISTRIBUICAO d = distribui(curva({{0.5, 7.3}}), UNIDADE::mm);
  EXPECT_EQ(d.graos, 1U);
  for (const auto& x : d.d) EXPECT_EQ(x, 0.5);
  EXPECT_EQ(d.media, 0.5);
  EXPECT_EQ(d.desvio, 0);
  EXPECT_EQ(d.mediaPhi, 1);  // half a millimetre
  EXPECT_EQ(d.selecao, 0);
  EXPECT_FALSE(d.assimetria.has_value());
  EXPECT_FALSE(d.curtose.has_value());
  EXPECT_EQ(d.uniformidade, 1);
  EXPECT_EQ(d.curvatura, 1);
}

TEST(Distribui, GraosIguaisTemDesvioZeroExato) {
  const DISTRIBUICAO d = distribui(curva({{0.1, 0.7}, {0.1, 0.1}, {0.1, 0.3}}), UNIDADE::mm);
  EXPECT_EQ(d.media, 0.1);
  EXPECT_EQ(d.desvio, 0);
  EXPECT_FALSE(d.assimetria.has_value());
}

TEST(Distribui, MediaEDesvioPonderados) {
  const DISTRIBUICAO d = distribui(curva({{10, 1}, {20, 3}}), UNIDADE::px);
  EXPECT_DOUBLE_EQ(*d.media, 17.5);
  EXPECT_DOUBLE_EQ(*d.desvio, std::sqrt((1 * 56.25 + 3 * 6.25) / 4));
}

TEST(Distribui, UniformidadeECurvaturaDosPercentis) {
  // Points of the curve at 5, 15, ..., 95 percent.
  const DISTRIBUICAO d = distribui(curva(tamanhos({1, 2, 3, 4, 5, 6, 7, 8, 9, 10})), UNIDADE::mm);
  EXPECT_DOUBLE_EQ(*valorD(d, 10), 1.5);
  EXPECT_DOUBLE_EQ(*valorD(d, 30), 3.5);
  EXPECT_DOUBLE_EQ(*valorD(d, 60), 6.5);
  EXPECT_DOUBLE_EQ(*d.uniformidade, 6.5 / 1.5);
  EXPECT_DOUBLE_EQ(*d.curvatura, 3.5 * 3.5 / (1.5 * 6.5));
  EXPECT_FALSE(valorD(d, 99).has_value());
}

TEST(Distribui, AOrdemDosGraosNaoMudaNenhumDigito) {
  std::mt19937 sorteio(20412);
  for (int caso = 0; caso < 30; ++caso) {
    std::vector<MEDIDA> v = sorteadas(sorteio, 200);
    const std::vector<double> antes = numeros(distribui(curva(v), UNIDADE::mm));
    std::shuffle(v.begin(), v.end(), sorteio);
    ASSERT_EQ(numeros(distribui(curva(v), UNIDADE::mm)), antes) << caso;
  }
}

TEST(Distribui, DobrarOsTamanhosDobraOsDiametrosETiraUmDoPhi) {
  std::mt19937 sorteio(20413);
  std::vector<MEDIDA> v = sorteadas(sorteio, 150);
  const DISTRIBUICAO antes = distribui(curva(v), UNIDADE::mm);
  for (MEDIDA& m : v) m.tamanho *= 2;
  const DISTRIBUICAO d = distribui(curva(v), UNIDADE::mm);
  for (std::size_t i = 0; i < percentis.size(); ++i) EXPECT_EQ(*d.d[i], 2 * *antes.d[i]);
  EXPECT_EQ(*d.media, 2 * *antes.media);
  EXPECT_EQ(*d.desvio, 2 * *antes.desvio);
  EXPECT_NEAR(*d.mediaPhi, *antes.mediaPhi - 1, 1e-12);
  EXPECT_NEAR(*d.selecao, *antes.selecao, 1e-12);
  EXPECT_NEAR(*d.assimetria, *antes.assimetria, 1e-12);
  EXPECT_NEAR(*d.curtose, *antes.curtose, 1e-12);
  EXPECT_EQ(d.uniformidade, antes.uniformidade);
  EXPECT_EQ(d.curvatura, antes.curvatura);
}

TEST(Distribui, SoARazaoDosPesosConta) {
  std::mt19937 sorteio(20414);
  std::vector<MEDIDA> v = sorteadas(sorteio, 150);
  const std::vector<double> antes = numeros(distribui(curva(v), UNIDADE::mm));
  for (MEDIDA& m : v) m.peso *= 1024;
  EXPECT_EQ(numeros(distribui(curva(v), UNIDADE::mm)), antes);
}

TEST(Distribui, APhiEhEmMilimetrosEmQualquerUnidade) {
  const std::vector<double> v = {0.2, 0.3, 0.5, 0.9};
  const DISTRIBUICAO mm = distribui(curva(tamanhos(v)), UNIDADE::mm);
  std::vector<double> mil = v;
  for (double& x : mil) x *= 1000;
  const DISTRIBUICAO um = distribui(curva(tamanhos(mil)), UNIDADE::um);
  EXPECT_NEAR(*um.mediaPhi, *mm.mediaPhi, 1e-12);
  EXPECT_NEAR(*um.selecao, *mm.selecao, 1e-12);
  EXPECT_NEAR(*um.d[5], 1000 * *mm.d[5], 1e-9);
}

TEST(Medida, TamanhoEPesoDoGraoNaUnidade) {
  const GRAO g = mede({0.5F, 'r', 50, 50, 40, 10, 0}, 0, 100, 100);
  const ESCALA e{0.5, UNIDADE::mm};
  const double equivalente = std::sqrt(1600 / 3.141592653589793) / 2;
  EXPECT_DOUBLE_EQ(medida(g, e, GRANDEZA::equivalente, PESO::numero).tamanho, equivalente);
  EXPECT_EQ(medida(g, e, GRANDEZA::menor, PESO::numero).tamanho, 5);
  EXPECT_EQ(medida(g, e, GRANDEZA::maior, PESO::numero).tamanho, 20);
  // The weight is that of the grain, whichever diameter is its size.
  for (const GRANDEZA grandeza : {GRANDEZA::equivalente, GRANDEZA::menor, GRANDEZA::maior}) {
    EXPECT_EQ(medida(g, e, grandeza, PESO::numero).peso, 1);
    EXPECT_EQ(medida(g, e, grandeza, PESO::area).peso, 100);
    EXPECT_NEAR(medida(g, e, grandeza, PESO::volume).peso,
                3.141592653589793 / 6 * std::pow(equivalente, 3), 1e-9);
  }
}

TEST(Medida, AreaEVolumePuxamParaOsGraosGrandes) {
  std::vector<GRAO> graos;
  for (int i = 1; i <= 30; ++i) graos.push_back(mede({0.5F, 'c', 0, 0, i * 1.0, 0, 0}, 0, 9, 9));
  double anterior = 0;
  for (const PESO peso : {PESO::numero, PESO::area, PESO::volume}) {
    std::vector<MEDIDA> v;
    for (const GRAO& g : graos) v.push_back(medida(g, {}, GRANDEZA::equivalente, peso));
    const DISTRIBUICAO d = distribui(curva(v), UNIDADE::px);
    EXPECT_GT(*valorD(d, 50), anterior + 1);
    EXPECT_GT(*d.media, 15);
    anterior = *valorD(d, 50);
  }
  EXPECT_NEAR(anterior, 30 * std::pow(0.5, 0.25), 0.6);  // half the sum of cubes lies below
}

TEST(FolkWard, CurvaNormalEmPhiTemAssimetria0ECurtose1) {
  // The standard normal quantiles of 5, 16, 25, 50, 75, 84 and 95 percent.
  const auto normal = [](int p) {
    const double z = p == 50 ? 0
                             : (std::min(p, 100 - p) == 5    ? 1.6448536269514722
                                : std::min(p, 100 - p) == 16 ? 0.9944578832097532
                                                             : 0.6744897501960817);
    return p < 50 ? -z : z;
  };
  const FOLKWARD f = folkWard([&](int p) { return std::exp2(-2.0 + 0.5 * normal(p)); });
  EXPECT_NEAR(f.media, 2, 1e-12);
  EXPECT_NEAR(f.selecao, 0.5 * (2 * 0.9944578832097532 / 4 + 2 * 1.6448536269514722 / 6.6), 1e-12);
  EXPECT_NEAR(*f.assimetria, 0, 1e-12);
  EXPECT_NEAR(*f.curtose, 1, 1e-3);
}

TEST(FolkWard, CaudaDeGraosFinosDaAssimetriaPositiva) {
  // In phi: 5 and 16 percent coarser at 0 and 1, the median at 2, 84 and 95 percent at 4 and 8.
  const auto d = [](int p) {
    const double phi = p == 95   ? 0
                       : p == 84 ? 1
                       : p == 75 ? 1.5
                       : p == 50 ? 2
                       : p == 25 ? 3
                       : p == 16 ? 4
                                 : 8;
    return std::exp2(-phi);
  };
  const FOLKWARD f = folkWard(d);
  EXPECT_NEAR(f.media, 7.0 / 3, 1e-12);
  EXPECT_NEAR(f.selecao, 3.0 / 4 + 8 / 6.6, 1e-12);
  EXPECT_NEAR(*f.assimetria, 1.0 / 6 + 4.0 / 16, 1e-12);
  EXPECT_NEAR(*f.curtose, 8 / (2.44 * 1.5), 1e-12);
}

TEST(FolkWard, QuartisIguaisNaoTemCurtose) {
  const FOLKWARD f = folkWard([](int p) { return p > 75 ? 2.0 : p < 25 ? 0.5 : 1.0; });
  EXPECT_FALSE(f.curtose.has_value());
  EXPECT_NEAR(*f.assimetria, 0, 1e-12);
}

}  // namespace
