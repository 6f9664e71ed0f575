#include "refine/apura.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "apoio/erros.h"
#include "apoio/pasta.h"
#include "detect/procura.h"
#include "examples/avaliacao.h"
#include "examples/cenas/cena.h"
#include "examples/cenas/tipos/tipos.h"
#include "kernels/lekernels.h"
#include "refine/foto.h"

namespace refine {

namespace {

constexpr double infinito = std::numeric_limits<double>::infinity();
constexpr double naoNumero = std::numeric_limits<double>::quiet_NaN();

// Three grains far apart, and rough detections of them.
const std::vector<FIGURA>& tresGraos() {
  static const std::vector<FIGURA> v = {{'c', 40.3, 41.7, 30.5, 30.5, 0},
                                        {'r', 50.4, 110.2, 44.3, 22.6, 25},
                                        {'e', 115.1, 60.6, 40.2, 24.9, 130}};
  return v;
}

const std::vector<MAXLOCAL>& tresDeteccoes() {
  static const std::vector<MAXLOCAL> v = {{0.8F, 'c', 41, 41, 28, 28, 0},
                                          {0.7F, 'r', 50, 111, 41, 24, 20},
                                          {0.6F, 'e', 114, 60, 43, 23, 135}};
  return v;
}

cv::Mat_<unsigned char> fotoDosTres() {
  std::mt19937 g(18);
  return fotografaFormas({160, 150}, tresGraos(), {0.8, 0.3, 0.8, 2}, g);
}

// Asserts what holds of every grain.
void confereApurados(const APURACAO& r) {
  double antes = 1;
  for (const APURADO& g : r.graos) {
    EXPECT_TRUE(std::isfinite(g.figura.l) && std::isfinite(g.figura.c));
    EXPECT_GE(g.figura.d1, g.figura.d2);
    EXPECT_GT(g.figura.d2, 0);
    EXPECT_LE(g.apoio, antes);
    EXPECT_GE(g.apoio, 0);
    antes = g.apoio;
    for (const double e : g.erro) EXPECT_GE(e, 0);
  }
}

}  // namespace

TEST(Apura, MedeOsTres) {
  const APURACAO r = apura(fotoDosTres(), tresDeteccoes(), {});
  EXPECT_EQ(r.recusados, 0U);
  ASSERT_EQ(r.graos.size(), 3U);
  confereApurados(r);
  for (const FIGURA& certa : tresGraos()) {
    const auto g = std::find_if(r.graos.begin(), r.graos.end(),
                                [&](const APURADO& x) { return x.figura.forma == certa.forma; });
    ASSERT_NE(g, r.graos.end()) << certa.forma;
    EXPECT_NEAR(g->figura.l, certa.l, 0.15);
    EXPECT_NEAR(g->figura.c, certa.c, 0.15);
    EXPECT_NEAR(g->figura.d1, certa.d1, 0.25);
    EXPECT_NEAR(g->figura.d2, certa.d2, 0.25);
    EXPECT_NEAR(g->figura.ang, certa.ang, 1);
    EXPECT_NEAR(g->contraste, 0.5, 0.08);
    EXPECT_EQ(g->erro[4] == 0, certa.forma == 'c');
  }
}

TEST(Apura, LetrasETamanhosPedidos) {
  MODO_DE_APURAR modo;
  modo.familias = "e";
  for (const APURADO& g : apura(fotoDosTres(), tresDeteccoes(), modo).graos) {
    EXPECT_EQ(g.figura.forma, 'e');
  }
  modo = {};
  modo.semLetras = true;
  std::vector<MAXLOCAL> quadrados = tresDeteccoes();
  quadrados[0].forma = 'q';
  quadrados.resize(1);
  for (const APURADO& g : apura(fotoDosTres(), quadrados, modo).graos) {
    EXPECT_EQ(g.figura.forma, 'q');
  }
  modo = {};
  modo.maior = 33;  // of the diameters 30.5, 35.7 and 31.6
  EXPECT_EQ(apura(fotoDosTres(), tresDeteccoes(), modo).graos.size(), 2U);
  modo.menor = 31;
  EXPECT_EQ(apura(fotoDosTres(), tresDeteccoes(), modo).graos.size(), 1U);
  for (const char* familias : {"", "x", "cqrez", "C"}) {
    modo.familias = familias;
    EXPECT_NE(erroDe([&] { apura(fotoDosTres(), {}, modo); }), "") << familias;
  }
}

TEST(Apura, ListaVazia) {
  const APURACAO r = apura(fotoDosTres(), {}, {});
  EXPECT_TRUE(r.graos.empty());
  EXPECT_EQ(r.recusados, 0U);
  EXPECT_EQ(apura(cv::Mat_<unsigned char>(), tresDeteccoes(), {}).recusados, 3U);
}

TEST(Apura, RecusaOQueNaoEhForma) {
  std::vector<MAXLOCAL> ruins;
  for (const double x : {naoNumero, infinito, -infinito, 0.0, -3.0, 1e-300, 0.9, 1e300, 400.0}) {
    ruins.push_back({0.5F, 'c', 40, 40, x, 20, 0});
    ruins.push_back({0.5F, 'e', 40, 40, 20, x, 0});
  }
  for (const double x : {naoNumero, infinito, 1e300}) ruins.push_back({0.5F, 'q', 9, 9, 9, 9, x});
  ruins.push_back({std::numeric_limits<float>::quiet_NaN(), 'c', 40, 40, 20, 20, 0});
  ruins.push_back({0.5F, 'c', -1, 40, 20, 20, 0});
  ruins.push_back({0.5F, 'c', 40, 160, 20, 20, 0});
  ruins.push_back({0.5F, 'c', std::numeric_limits<int>::max(), 40, 20, 20, 0});
  ruins.push_back({0.5F, 'c', 40, std::numeric_limits<int>::min(), 20, 20, 0});
  ruins.push_back({0.5F, 'x', 40, 40, 20, 20, 0});
  ruins.push_back({0.5F, 0, 40, 40, 20, 20, 0});
  const APURACAO so = apura(fotoDosTres(), ruins, {});
  EXPECT_EQ(so.recusados, ruins.size());
  EXPECT_TRUE(so.graos.empty());
  // Among good ones they change nothing.
  const std::size_t recusados = ruins.size();
  ruins.insert(ruins.begin() + 7, tresDeteccoes().begin(), tresDeteccoes().end());
  const APURACAO r = apura(fotoDosTres(), ruins, {});
  EXPECT_EQ(r.recusados, recusados);
  EXPECT_EQ(r.graos.size(), 3U);
}

TEST(Apura, QualquerRegistroEmQualquerFoto) {
  std::mt19937 g(19);
  for (const int lado : {1, 2, 5, 31, 33, 64}) {
    cv::Mat_<unsigned char> sorteada(lado, lado);
    for (unsigned char& x : sorteada) x = static_cast<unsigned char>(g());
    const cv::Mat_<unsigned char> lisa(lado, lado, static_cast<unsigned char>(128));
    std::uniform_real_distribution<double> tamanho(1, 2 * lado), ang(-1000, 1000);
    std::vector<MAXLOCAL> v;
    for (int k = 0; k < 60; ++k) {
      const auto lugar = [&] { return static_cast<int>(g() % static_cast<unsigned>(lado)); };
      v.push_back({0.3F, "cqre"[k % 4], lugar(), lugar(), tamanho(g), tamanho(g), ang(g)});
    }
    const APURACAO r = apura(sorteada, v, {});
    EXPECT_EQ(r.recusados, 0U);
    confereApurados(r);
    EXPECT_TRUE(apura(lisa, v, {}).graos.empty()) << lado;
  }
}

TEST(Apura, SensibilidadeSoAcrescenta) {
  std::mt19937 g(20);
  std::vector<MAXLOCAL> v = tresDeteccoes();
  for (int k = 0; k < 40; ++k) {
    v.push_back({0.1F, 'c', static_cast<int>(g() % 150), static_cast<int>(g() % 160), 14, 14, 0});
  }
  std::size_t antes = 0;
  for (const double s : {0.0, 0.25, 0.5, 0.75, 1.0}) {
    MODO_DE_APURAR modo;
    modo.sensibilidade = s;
    const std::size_t n = apura(fotoDosTres(), v, modo).graos.size();
    EXPECT_GE(n, antes) << s;
    antes = n;
  }
  EXPECT_GE(antes, 3U);
}

// A whole scene of separate grains: sought by correlation, refined, against its truth.
TEST(Apura, AchaEMedeUmaCena) {
  const cenas::TIPO* tipo = cenas::tipo("esparsa");
  ASSERT_NE(tipo, nullptr);
  const cenas::CENA cena = cenas::renderiza(*tipo, 7, {400, 300});
  const PASTA pasta;
  grava("k.cfg",
        "escoitava 3 escala 0.5 a 1.0 piramide 2.0 circulo 27 passoang 20 quadrado 26 "
        "retangulo 33 20 elipse 33 20 eof\n");
  std::vector<MASCARA> kernels;
  leKernels("k.cfg", kernels);
  const APURACAO r = apura(cena.foto, detect::procura(cena.foto, kernels, 0.1), {});
  confereApurados(r);
  std::vector<GRAO> verdade, achados;
  for (const cenas::OBJETO& o : cena.graos) verdade.push_back(o.verdade);
  for (const APURADO& g : r.graos) {
    const FIGURA& f = g.figura;
    achados.push_back({f.forma, f.l, f.c, f.d1, f.d2, f.ang});
  }
  ASSERT_GT(verdade.size(), 10U);
  const AVALIACAO a = avalia(verdade, achados, casa(verdade, achados));
  RecordProperty("graos", static_cast<int>(verdade.size()));
  EXPECT_GE(a.f1(), 0.95);
  EXPECT_LE(a.erroDiametro, 0.005);
}

}  // namespace refine
