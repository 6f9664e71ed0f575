#include "measure/incerteza/intervalo.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "apoio/figuras.h"
#include "measure/incerteza/reamostra.h"

using namespace measure;

namespace {

// 0 to 1, the same with every library.
double uniforme(std::mt19937& sorteio) {
  return static_cast<double>(sorteio()) / 4294967296.0;
}

std::vector<MEDIDA> sorteadas(std::mt19937& sorteio, int n, std::size_t fotos, double erro = 0) {
  std::vector<MEDIDA> v;
  for (int i = 0; i < n; ++i) {
    const double x = 10 + 20 * uniforme(sorteio);
    v.push_back({x, 1, erro * x, sorteio() % fotos});
  }
  return v;
}

double largura(const INTERVALOS& s, int p) {
  return *valorD(s.ate, p) - *valorD(s.de, p);
}

// All ends of all numbers.
std::vector<double> numeros(const INTERVALOS& s) {
  std::vector<double> v;
  for (const DISTRIBUICAO& d : {s.de, s.ate}) {
    for (const auto& x : d.d) v.push_back(x.value_or(-1));
    for (const auto& x : {d.media, d.desvio, d.mediaPhi, d.selecao, d.assimetria, d.curtose,
                          d.uniformidade, d.curvatura}) {
      v.push_back(x.value_or(-1));
    }
  }
  for (const auto& peneiras : {s.peneirasDe, s.peneirasAte}) {
    for (const PENEIRA& p : peneiras) {
      v.push_back(p.retida.value_or(-1));
      v.push_back(p.passante.value_or(-1));
    }
  }
  return v;
}

TEST(Intervalos, OsMesmosEmQualquerOrdemDosGraos) {
  std::mt19937 sorteio(1);
  std::vector<MEDIDA> v = sorteadas(sorteio, 60, 3, 0.01);
  const std::vector<double> antes = numeros(intervalos(v, UNIDADE::mm, {15, 20}));
  std::shuffle(v.begin(), v.end(), sorteio);
  EXPECT_EQ(numeros(intervalos(v, UNIDADE::mm, {15, 20})), antes);
}

TEST(Intervalos, ASementeEscolheOsSorteios) {
  std::mt19937 sorteio(2);
  const std::vector<MEDIDA> v = sorteadas(sorteio, 60, 3);
  EXPECT_NE(numeros(intervalos(v, UNIDADE::px)), numeros(intervalos(v, UNIDADE::px, {}, {0, 2})));
}

TEST(Intervalos, CrescemComAEscala) {
  std::mt19937 sorteio(3);
  std::vector<MEDIDA> v = sorteadas(sorteio, 40, 2, 0.02);
  const INTERVALOS antes = intervalos(v, UNIDADE::px);
  for (MEDIDA& m : v) {
    m.tamanho *= 4;
    m.erro *= 4;
  }
  const INTERVALOS depois = intervalos(v, UNIDADE::px);
  for (std::size_t k = 0; k < percentis.size(); ++k) {
    EXPECT_EQ(*depois.de.d[k], 4 * *antes.de.d[k]);
    EXPECT_EQ(*depois.ate.d[k], 4 * *antes.ate.d[k]);
  }
}

TEST(Intervalos, ContemONumeroEEstreitamComOsGraos) {
  std::mt19937 sorteio(4);
  const std::vector<MEDIDA> muitas = sorteadas(sorteio, 800, 1);
  const std::vector<MEDIDA> poucas(muitas.begin(), muitas.begin() + 50);
  const INTERVALOS largo = intervalos(poucas, UNIDADE::px);
  const INTERVALOS justo = intervalos(muitas, UNIDADE::px);
  const DISTRIBUICAO d = distribui(curva(poucas), UNIDADE::px);
  for (std::size_t k = 0; k < percentis.size(); ++k) {
    EXPECT_LE(*largo.de.d[k], *d.d[k]);
    EXPECT_GE(*largo.ate.d[k], *d.d[k]);
  }
  const double vezes = largura(largo, 50) / largura(justo, 50);  // 4 in the long run
  EXPECT_GT(vezes, 2.5);
  EXPECT_LT(vezes, 6);
}

TEST(Intervalos, OErroDosTamanhosOsAlarga) {
  std::mt19937 sorteio(5);
  std::vector<MEDIDA> v = sorteadas(sorteio, 300, 1);
  for (MEDIDA& m : v) m.tamanho = 20;
  EXPECT_EQ(largura(intervalos(v, UNIDADE::px), 50), 0);
  for (MEDIDA& m : v) m.erro = 1;
  // The mean of 300 errors of 1.
  const INTERVALOS s = intervalos(v, UNIDADE::px);
  EXPECT_NEAR(*s.ate.media - *s.de.media, 2 * 1.96 / std::sqrt(300), 0.03);
}

TEST(Intervalos, FotografiasQueDiferemOsAlargam) {
  std::mt19937 sorteio(6);
  std::vector<MEDIDA> v = sorteadas(sorteio, 400, 4);
  const INTERVALOS iguais = intervalos(v, UNIDADE::px);
  EXPECT_EQ(iguais.fotos, 4U);
  EXPECT_LT(iguais.entreFotos, 0.7);
  for (MEDIDA& m : v) m.tamanho *= 1 + 0.2 * static_cast<double>(m.foto);
  const INTERVALOS diferentes = intervalos(v, UNIDADE::px);
  EXPECT_GT(diferentes.entreFotos, 0.9);
  EXPECT_GT(largura(diferentes, 50), 3 * largura(iguais, 50));
}

TEST(Intervalos, FotografiasSemGraosNaoContam) {
  std::mt19937 sorteio(7);
  std::vector<MEDIDA> v = sorteadas(sorteio, 100, 2);
  const std::vector<double> antes = numeros(intervalos(v, UNIDADE::px));
  for (MEDIDA& m : v) m.foto = 3 + 5 * m.foto;
  EXPECT_EQ(numeros(intervalos(v, UNIDADE::px)), antes);
}

TEST(Intervalos, DeMenosDeDoisGraosNaoHa) {
  for (const std::size_t n : {0U, 1U}) {
    const INTERVALOS s = intervalos(std::vector<MEDIDA>(n, MEDIDA{10, 1}), UNIDADE::px, {5});
    EXPECT_FALSE(s.de.media || s.ate.d[5]);
    ASSERT_EQ(s.peneirasDe.size(), 2U);
    EXPECT_FALSE(s.peneirasAte[1].retida);
    EXPECT_EQ(s.fotos, n);
  }
}

TEST(Intervalos, UmaPeneiraVaziaNaoEhCerta) {
  std::mt19937 sorteio(8);
  const INTERVALOS s = intervalos(sorteadas(sorteio, 100, 1), UNIDADE::px, {5, 20, 50});
  EXPECT_EQ(s.peneirasDe[3].retida, 0);
  EXPECT_NEAR(*s.peneirasAte[3].retida, 0.036, 0.001);  // 1 - 0.025^(1/100)
  EXPECT_EQ(s.peneirasAte[1].passante, 3.7 / 103.7);
  EXPECT_EQ(s.peneirasAte[3].passante, 1);
  EXPECT_LT(*s.peneirasDe[2].retida, 0.5);
  EXPECT_GT(*s.peneirasAte[2].retida, 0.5);
}

// Of 300 samples 95 % hold the truth, give or take three standard errors of that share.
TEST(Intervalos, ContemAVerdadeEm95DeCem) {
  for (const std::size_t fotos : {1U, 5U}) {
    std::mt19937 sorteio(9);
    int d50 = 0;
    int media = 0;
    constexpr int casos = 300;
    for (int caso = 0; caso < casos; ++caso) {
      const INTERVALOS s = intervalos(sorteadas(sorteio, 60, fotos), UNIDADE::px, {}, {200, 1});
      d50 += *valorD(s.de, 50) <= 20 && 20 <= *valorD(s.ate, 50) ? 1 : 0;
      media += *s.de.media <= 20 && 20 <= *s.ate.media ? 1 : 0;
    }
    EXPECT_NEAR(d50, 0.95 * casos, 0.038 * casos) << fotos;
    EXPECT_NEAR(media, 0.95 * casos, 0.038 * casos) << fotos;
  }
}

TEST(Reamostra, CadaFotografiaTemTantosGraosQuantosTinha) {
  std::mt19937 sorteio(10);
  std::vector<MEDIDA> v = sorteadas(sorteio, 50, 1);
  const URNA u = urna(v);
  SORTEIO s(1);
  CURVA c;
  for (int k = 0; k < 20; ++k) {
    reamostra(u, s, c);
    double total = 0;
    for (const double w : c.peso) total += w;
    EXPECT_EQ(total, 50);
    EXPECT_TRUE(std::is_sorted(c.tamanho.begin(), c.tamanho.end()));
    EXPECT_LT(c.tamanho.size(), 50U);
  }
}

TEST(Reamostra, ComErroCadaGraoEstaDuasVezes) {
  const URNA u = urna({{10, 1, 2, 0}, {11, 3, 0, 0}, {1, 1, 50, 1}});
  EXPECT_EQ(u.copias, 2U);
  const std::vector<double> esperado = {1 - 0.9, 1 + 0.9, 8, 11, 11, 12};
  ASSERT_EQ(u.tamanho.size(), esperado.size());
  for (std::size_t i = 0; i < esperado.size(); ++i) EXPECT_DOUBLE_EQ(u.tamanho[i], esperado[i]);
  EXPECT_EQ(u.foto, (std::vector<std::size_t>{1, 1, 0, 0, 0, 0}));
  EXPECT_EQ(u.comeco, (std::vector<std::size_t>{0, 2, 3}));
}

TEST(Sorteio, AbaixoDeAlcancaTodos) {
  EXPECT_EQ(abaixoDe(7, 0), 0U);
  EXPECT_EQ(abaixoDe(7, 0xFFFFFFFFU), 6U);
  SORTEIO s(5);
  std::array<int, 7> vezes{};
  for (int k = 0; k < 7000; ++k) ++vezes[abaixoDe(7, s.proximo())];
  for (const int n : vezes) EXPECT_NEAR(n, 1000, 120);
}

}  // namespace
