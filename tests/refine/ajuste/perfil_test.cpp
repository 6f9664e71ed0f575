#include "refine/ajuste/perfil.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <random>

#include "refine/foto.h"

namespace refine {

namespace {

// A rise of 1 about 0, blurred by a bell.
double degrau(double x, double desvio) {
  return 0.5 * std::erfc(-x / (desvio * std::sqrt(2.0)));
}

// A point at (20.3, 21.6) whose normal points along this angle.
AMOSTRA pontoDeNormal(double graus) {
  const DIRECAO d = direcao(graus);
  AMOSTRA a{};
  a.l = 20.3;
  a.c = 21.6;
  a.nl = d.seno;
  a.nc = d.cosseno;
  a.arco = 1;
  a.peso = 1;
  return a;
}

// The picture whose grey along the normal of that point is `perfil(distance outward)`.
template <class PERFIL>
ANDAR andarDoPerfil(double graus, double ruido, PERFIL perfil) {
  const AMOSTRA a = pontoDeNormal(graus);
  return andarDe(40, 40, ruido,
                 [&](double l, double c) { return perfil((l - a.l) * a.nl + (c - a.c) * a.nc); });
}

BORDA bordaDe(const ANDAR& andar, const AMOSTRA& a, const ALCANCE& como) {
  std::vector<BORDA> b;
  procuraBordas(andar, {&a, 1}, como, b);
  return b.at(0);
}

// What steps at known places between pixels are found off by, along normals of many angles.
struct DESACERTO {
  double maior = 0;
  double rms = 0;
  double largura2 = 0;  // median
};

DESACERTO desacerto(double desvio) {
  DESACERTO d;
  std::vector<float> larguras;
  for (double graus = 0; graus < 360; graus += 23) {
    for (double onde = -1.35; onde < 1.4; onde += 0.15) {
      const ANDAR andar = andarDoPerfil(
          graus, 0.006, [&](double s) { return 0.3 + 0.5 * degrau(s - onde, desvio); });
      const BORDA b = bordaDe(andar, pontoDeNormal(graus), {4, 0.5, 4});
      EXPECT_TRUE(b.visivel && b.ha && b.dentro < b.fora);
      const double erro = std::fabs(static_cast<double>(b.desvio) - onde);
      d.maior = std::fmax(d.maior, erro);
      d.rms += erro * erro;
      larguras.push_back(b.largura2);
    }
  }
  const auto n = static_cast<std::ptrdiff_t>(larguras.size());
  d.rms = std::sqrt(d.rms / static_cast<double>(n));
  std::nth_element(larguras.begin(), larguras.begin() + n / 2, larguras.end());
  d.largura2 = static_cast<double>(larguras[static_cast<std::size_t>(n / 2)]);
  return d;
}

}  // namespace

// Greys between pixels are interpolated in straight lines, in another proportion at every half
// step, which moves the peak of a parabola; over a whole contour it evens out.
TEST(Perfil, AchaDegrausEntrePixels) {
  for (const double desvio : {1.0, 1.3, 2.0}) {
    const DESACERTO d = desacerto(desvio);
    EXPECT_LE(d.maior, 0.32) << desvio;
    EXPECT_LE(d.rms, 0.08) << desvio;
    // The slope over two pixels adds 1 / 3 to the variance of the blur.
    EXPECT_NEAR(d.largura2, desvio * desvio + 1.0 / 3, 0.4) << desvio;
  }
}

TEST(Perfil, MedeDeclive) {
  constexpr double desvio = 2;
  const ANDAR andar =
      andarDoPerfil(0, 0.006, [&](double s) { return 0.3 + 0.5 * degrau(s, desvio); });
  const BORDA b = bordaDe(andar, pontoDeNormal(0), {6, 0.5});
  EXPECT_NEAR(b.rampa, 0.5 * (degrau(1, desvio) - degrau(-1, desvio)) / 2, 0.003);
  EXPECT_NEAR(b.dentro, 0.3, 0.01);
  EXPECT_NEAR(b.fora, 0.8, 0.01);
}

TEST(Perfil, AbaixoDoRuidoNaoHaBorda) {
  // A ramp of 0.1 a pixel: no edge where the noise is above 0.2.
  const auto rampa = [](double s) { return 0.5 + 0.1 * s; };
  const AMOSTRA a = pontoDeNormal(50);
  EXPECT_TRUE(bordaDe(andarDoPerfil(50, 0.19, rampa), a, {2, 0.5}).ha);
  EXPECT_FALSE(bordaDe(andarDoPerfil(50, 0.21, rampa), a, {2, 0.5}).ha);
  // Bright inside is no edge, nor is even grey.
  const auto descida = [](double s) { return 0.5 - 0.1 * s; };
  EXPECT_FALSE(bordaDe(andarDoPerfil(50, 0.006, descida), a, {2, 0.5}).ha);
  EXPECT_FALSE(bordaDe(andarDoPerfil(50, 0.006, [](double) { return 0.5; }), a, {2, 0.5}).ha);
}

TEST(Perfil, AMaisForteOuAMaisInterna) {
  const auto dois = [](double s) {
    return 0.2 + 0.15 * degrau(s + 2.5, 0.8) + 0.5 * degrau(s - 2.5, 0.8);
  };
  for (const double graus : {0.0, 64.0, 211.0}) {
    const ANDAR andar = andarDoPerfil(graus, 0.006, dois);
    const AMOSTRA a = pontoDeNormal(graus);
    EXPECT_NEAR(bordaDe(andar, a, {5, 0.5}).desvio, 2.5, 0.1);
    EXPECT_NEAR(bordaDe(andar, a, {5, 0.5, 0, 0.03}).desvio, -2.5, 0.1);
    EXPECT_NEAR(bordaDe(andar, a, {5, 0.5, 0, 0.1}).desvio, 2.5, 0.1);
  }
}

TEST(Perfil, ANitidaAntesDaSuave) {
  // The soft one is steeper, by a ramp of six pixels.
  const auto dois = [](double s) {
    return 0.1 + 0.2 * degrau(s + 2.5, 0.8) + 0.12 * std::fmin(std::fmax(s, 0), 6);
  };
  const ANDAR andar = andarDoPerfil(0, 0.006, dois);
  const AMOSTRA a = pontoDeNormal(0);
  EXPECT_GT(bordaDe(andar, a, {5, 0.5, 0}).desvio, 0);
  EXPECT_NEAR(bordaDe(andar, a, {5, 0.5, 4}).desvio, -2.5, 0.1);
}

TEST(Perfil, MediaDosVizinhosTiraRuido) {
  std::mt19937 g(6);
  std::normal_distribution<double> ruido(0, 0.05);
  const FIGURA f{'q', 30, 30, 30, 30, 0};
  const EIXOS e(f);
  const ANDAR andar = andarDe(60, 60, 0.006, [&](double l, double c) {
    const double longe = std::fmax(std::fabs(e.u(l, c)), std::fabs(e.v(l, c))) - 15;
    return 0.3 + 0.4 * degrau(longe, 1.2) + ruido(g);
  });
  std::vector<AMOSTRA> amostras;
  std::vector<BORDA> bordas;
  amostra(f, 120, amostras);
  const auto espalha = [&](int junta) {
    procuraBordas(andar, amostras, {3, 0.5, 0, 0, junta}, bordas);
    double s = 0;
    for (const BORDA& b : bordas) s += static_cast<double>(b.desvio * b.desvio);
    return std::sqrt(s / static_cast<double>(bordas.size()));
  };
  const double sozinhas = espalha(0);
  EXPECT_GT(sozinhas, 0.15);
  EXPECT_LT(espalha(4), 0.6 * sozinhas);
}

TEST(Perfil, ForaDaFotoNaoSeVe) {
  const ANDAR andar = andarDe(30, 40, 0.006, [](double, double) { return 0.5; });
  AMOSTRA a = pontoDeNormal(0);
  for (const double longe : {-1e9, -30.0, -0.6, 39.6, 70.0, 1e9}) {
    a.c = longe;
    for (const int junta : {0, 3}) {
      EXPECT_FALSE(bordaDe(andar, a, {8, 0.5, 12, 0, junta}).visivel) << longe;
    }
  }
  a.c = 39.4;
  EXPECT_TRUE(bordaDe(andar, a, {8, 0.5}).visivel);
}

}  // namespace refine
