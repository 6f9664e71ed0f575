#include "measure/grao.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <random>

#include "apoio/erros.h"
#include "apoio/figuras.h"
#include "measure/contorno.h"
#include "measure/perimetro.h"

using namespace measure;

namespace {

using std::numbers::pi;

MAXLOCAL forma(char letra, double d1, double d2 = 0, double ang = 0, int li = 50, int ci = 50) {
  return {0.5F, letra, li, ci, d1, d2, ang};
}

GRAO medido(const MAXLOCAL& m) {
  return mede(m, 0, 100, 100);
}

TEST(Mede, CirculoUsaSoOPrimeiroTamanho) {
  const GRAO g = medido(forma('c', 10, 999));
  EXPECT_DOUBLE_EQ(g.area, 25 * pi);
  EXPECT_EQ(g.equivalente, 10);
  EXPECT_DOUBLE_EQ(g.perimetro, 10 * pi);
  EXPECT_EQ(g.menor, 10);
  EXPECT_EQ(g.maior, 10);
  EXPECT_EQ(g.alongamento, 1);
}

TEST(Mede, QuadradoTemAreaDoLadoEDiametroDoCirculoDeMesmaArea) {
  const GRAO g = medido(forma('q', 10, 999, 30));
  EXPECT_EQ(g.area, 100);
  EXPECT_NEAR(g.equivalente, 11.283791670955126, 1e-13);  // 20 / sqrt(pi)
  EXPECT_EQ(g.perimetro, 40);
  EXPECT_EQ(g.menor, 10);
  EXPECT_EQ(g.alongamento, 1);
}

TEST(Mede, RetanguloTemOLadoMenorSejaQualFor) {
  for (const MAXLOCAL& m : {forma('r', 20, 8, 10), forma('r', 8, 20, 10)}) {
    const GRAO g = medido(m);
    EXPECT_EQ(g.area, 160);
    EXPECT_EQ(g.perimetro, 56);
    EXPECT_EQ(g.menor, 8);
    EXPECT_EQ(g.maior, 20);
    EXPECT_EQ(g.alongamento, 2.5);
  }
}

TEST(Mede, ElipseTemPerimetroExato) {
  const GRAO g = medido(forma('e', 48, 24));
  EXPECT_DOUBLE_EQ(g.area, 288 * pi);
  EXPECT_DOUBLE_EQ(g.equivalente, std::sqrt(1152.0));
  EXPECT_NEAR(g.perimetro, 24 * 4.844224110273838, 1e-12);  // that of semi-axes 1 and 1/2
  EXPECT_EQ(g.alongamento, 2);
}

TEST(Mede, GuardaOIndiceEORegistro) {
  const GRAO g = mede(forma('e', 20, 10, 35, 7, 9), 42, 100, 100);
  EXPECT_EQ(g.indice, 42U);
  EXPECT_EQ(g.figura.forma, 'e');
  EXPECT_EQ(g.figura.l, 7);
  EXPECT_EQ(g.figura.c, 9);
  EXPECT_EQ(g.figura.ang, 35);
}

TEST(MedeTodos, OIndiceEhOLugarNaLista) {
  const std::vector<GRAO> graos = medeTodos({forma('c', 3), forma('q', 4), forma('c', 5)}, 9, 9);
  ASSERT_EQ(graos.size(), 3U);
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(graos[i].indice, i);
  EXPECT_EQ(graos[1].maior, 4);
  EXPECT_TRUE(medeTodos({}, 9, 9).empty());
}

TEST(MedeApurados, FracoesDePixelMudamABordaEArredondamNoRegistro) {
  refine::APURADO a;
  a.figura = {'c', 10.4, 9.6, 21, 21, 0};
  a.correl = 0.25F;
  a.apoio = 0.5;
  const std::vector<GRAO> graos = medeApurados({a, a}, 40, 40);
  ASSERT_EQ(graos.size(), 2U);
  EXPECT_EQ(graos[1].indice, 1U);
  EXPECT_TRUE(graos[0].tocaBorda);  // 9.6 - 10.5 < -0.5
  EXPECT_EQ(graos[0].medido->apoio, 0.5);
  const MAXLOCAL m = registro(graos[0]);
  EXPECT_EQ(m.li, 10);
  EXPECT_EQ(m.ci, 10);
  EXPECT_EQ(m.correl, 0.25F);
  EXPECT_EQ(m.d1, 21);
  EXPECT_FALSE(mede(m, 0, 40, 40).tocaBorda);
}

TEST(Registro, DeUmaDeteccaoEhElaMesma) {
  const MAXLOCAL m = forma('e', 20.25, 10.5, 35, -7, 9);
  const MAXLOCAL r = registro(mede(m, 0, 9, 9));
  EXPECT_EQ(r.forma, m.forma);
  EXPECT_EQ(r.li, m.li);
  EXPECT_EQ(r.ci, m.ci);
  EXPECT_EQ(r.d1, m.d1);
  EXPECT_EQ(r.d2, m.d2);
  EXPECT_EQ(r.ang, m.ang);
  EXPECT_EQ(r.correl, m.correl);
}

TEST(Mede, FormaSemMedidaEhErroQueDizQualE) {
  EXPECT_EQ(erroDe([&] { mede(forma('x', 5, 6), 3, 9, 9); }), "Erro: Forma sem medida 3 x 5 6");
  EXPECT_EQ(erroDe([&] { mede(forma('r', 5, 0), 12, 9, 9); }), "Erro: Forma sem medida 12 r 5 0");
}

TEST(Mensuravel, SoFormasComTamanhosPositivosEFinitos) {
  const double infinito = std::numeric_limits<double>::infinity();
  EXPECT_TRUE(mensuravel(forma('c', 5, -3)));  // a circle has no second size
  EXPECT_TRUE(mensuravel(forma('e', 1e-5, 1e6)));
  EXPECT_FALSE(mensuravel(forma('e', 5, -3)));
  EXPECT_FALSE(mensuravel(forma('q', 0)));
  EXPECT_FALSE(mensuravel(forma('q', 9e-6)));
  EXPECT_FALSE(mensuravel(forma('r', 5, 1.1e6)));
  EXPECT_FALSE(mensuravel(forma('c', std::nan(""))));
  EXPECT_FALSE(mensuravel(forma('c', 5, infinito)));
  EXPECT_FALSE(mensuravel(forma('q', 5, 5, std::nan(""))));
  MAXLOCAL semCorrelacao = forma('c', 5);
  semCorrelacao.correl = std::numeric_limits<float>::quiet_NaN();
  EXPECT_FALSE(mensuravel(semCorrelacao));
}

TEST(TocaBorda, UmPixelSeparaDentroDeFora) {
  // 21 pixels about pixel 10 cover pixels 0 to 20, and no more.
  EXPECT_FALSE(mede(forma('c', 21, 0, 0, 10, 10), 0, 21, 21).tocaBorda);
  EXPECT_TRUE(mede(forma('c', 21.001, 0, 0, 10, 10), 0, 21, 21).tocaBorda);
  EXPECT_TRUE(mede(forma('c', 21, 0, 0, 9, 10), 0, 21, 21).tocaBorda);   // top
  EXPECT_TRUE(mede(forma('c', 21, 0, 0, 11, 10), 0, 21, 21).tocaBorda);  // bottom
  EXPECT_TRUE(mede(forma('c', 21, 0, 0, 10, 9), 0, 21, 21).tocaBorda);   // left
  EXPECT_TRUE(mede(forma('c', 21, 0, 0, 10, 11), 0, 21, 21).tocaBorda);  // right
}

TEST(TocaBorda, DependeDoAngulo) {
  EXPECT_FALSE(mede(forma('r', 40, 10, 0, 10, 50), 0, 100, 100).tocaBorda);
  EXPECT_TRUE(mede(forma('r', 40, 10, 90, 10, 50), 0, 100, 100).tocaBorda);
  // The diagonal of a square of side 14 is 19.8; upright it would fit.
  EXPECT_FALSE(mede(forma('q', 14, 0, 0, 9, 50), 0, 100, 100).tocaBorda);
  EXPECT_TRUE(mede(forma('q', 14, 0, 45, 9, 50), 0, 100, 100).tocaBorda);
  // The corners of the box around a turned ellipse are not part of it.
  EXPECT_FALSE(mede(forma('e', 14, 14, 45, 9, 50), 0, 100, 100).tocaBorda);
}

TEST(Perimetro, CasosDeConferir) {
  EXPECT_DOUBLE_EQ(perimetroElipse(10, 10), 10 * pi);
  EXPECT_EQ(perimetroElipse(10, 0), 20);
  EXPECT_EQ(perimetroElipse(0, 0), 0);
  EXPECT_EQ(perimetroElipse(7, 3), perimetroElipse(3, 7));
  EXPECT_NEAR(perimetroElipse(1e6, 1e-5), 2e6, 1e-6);
}

// The library's own integral, by other means; it is the less exact of the two.
TEST(Perimetro, IgualAIntegralElipticaDaBiblioteca) {
  std::mt19937 sorteio(20311);
  for (int caso = 0; caso < 2000; ++caso) {
    const double eixo1 = sorteia(sorteio, 1, 100000) * 0.01;
    const double eixo2 = eixo1 * sorteia(sorteio, 1, 10000) * 0.0001;
    const double razao = eixo2 / eixo1;
    const double esperado = 2 * eixo1 * std::comp_ellint_2(std::sqrt((1 - razao) * (1 + razao)));
    ASSERT_NEAR(perimetroElipse(eixo1, eixo2), esperado, 5e-12 * esperado) << eixo1 << ' ' << eixo2;
  }
}

}  // namespace
