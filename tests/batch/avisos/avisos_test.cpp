#include "batch/avisos/avisos.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <opencv2/imgproc.hpp>

using namespace batch;
using exporta::IDIOMA;

namespace {

constexpr ALCANCE de10a80{10, 80};

// `quantos` grains evenly from `de` to `ate`.
std::vector<double> entre(double de, double ate, int quantos) {
  std::vector<double> v;
  for (int i = 0; i < quantos; ++i) v.push_back(de + (ate - de) * i / quantos);
  return v;
}

bool tem(const std::vector<AVISO>& v, DUVIDA que) {
  return std::any_of(v.begin(), v.end(), [que](const AVISO& a) { return a.que == que; });
}

// Discs on noise-free ground, blurred.
cv::Mat_<unsigned char> discos(int raio, int fundo, int tom, double desfoque) {
  cv::Mat_<unsigned char> m(200, 300, static_cast<unsigned char>(fundo));
  for (int l = 30; l < 200; l += 50) {
    for (int c = 30; c < 300; c += 60) cv::circle(m, {c, l}, raio, tom, cv::FILLED, cv::LINE_AA);
  }
  cv::GaussianBlur(m, m, {0, 0}, desfoque);
  return m;
}

std::vector<measure::GRAO> graosDe(int raio, float contraste) {
  std::vector<MAXLOCAL> v;
  const auto d = 2 * static_cast<float>(raio) + 1;  // as they are drawn
  for (int l = 30; l < 200; l += 50) {
    for (int c = 30; c < 300; c += 60) v.push_back({contraste, 'c', l, c, d, d, 0});
  }
  return measure::medeTodos(v, 200, 300);
}

TEST(Avisos, DeMuitosGraosBonsNaoHaNenhum) {
  EXPECT_TRUE(avisos({entre(15, 60, 200), {{0.3, 0.1, 2.5}}}, de10a80).empty());
}

TEST(Avisos, TamanhosQueSeAcumulamNumaPonta) {
  std::vector<double> v = entre(15, 60, 200);
  v.insert(v.end(), 60, 10.2);
  const std::vector<AVISO> a = avisos({v, {}}, de10a80);
  ASSERT_EQ(a.size(), 1U);
  EXPECT_EQ(a[0].que, DUVIDA::noMenor);
  EXPECT_EQ(frase(a[0], IDIOMA::en),
            "23 % of the grains at the smallest size searched (10 px) or below: search for smaller "
            "ones too");
  v = entre(15, 60, 200);
  v.insert(v.end(), 40, 90);
  EXPECT_TRUE(tem(avisos({v, {}}, de10a80), DUVIDA::noMaior));
  // The search ends where the grains do.
  EXPECT_TRUE(avisos({entre(10, 80, 400), {}}, de10a80).empty());
  EXPECT_TRUE(avisos({entre(10, 12, 400), {}}, {10, 12}).empty());
}

TEST(Avisos, MenosDeCemGraos) {
  EXPECT_FALSE(tem(avisos({entre(15, 60, 100), {}}, de10a80), DUVIDA::poucos));
  const std::vector<AVISO> a = avisos({entre(15, 60, 99), {}}, de10a80);
  ASSERT_TRUE(tem(a, DUVIDA::poucos));
  EXPECT_EQ(frase(a[0], IDIOMA::pt), "99 graos: D10 e D90 pedem pelo menos 100");
}

TEST(Sinais, APolaridadeTrocadaApareceNaFotografia) {
  const SINAIS certa = sinais(discos(10, 190, 60, 1), {}, {10, 40});
  EXPECT_GT(certa.escuros, 1.5 * certa.claros);
  const SINAIS trocada = sinais(discos(10, 60, 190, 1), {}, {10, 40});
  EXPECT_NEAR(trocada.claros, certa.escuros, 0.02);
  const std::vector<double> d = entre(15, 60, 200);
  EXPECT_FALSE(tem(avisos({d, {certa}}, de10a80), DUVIDA::polaridade));
  EXPECT_TRUE(tem(avisos({d, {trocada}}, de10a80), DUVIDA::polaridade));
  EXPECT_TRUE(tem(avisos({d, {trocada, certa}}, de10a80), DUVIDA::polaridade));
  EXPECT_FALSE(tem(avisos({d, {trocada, certa, certa}}, de10a80), DUVIDA::polaridade));
}

TEST(Sinais, ODesfoqueEhALarguraDasBordas) {
  for (const double sigma : {1.5, 3.0}) {
    const double largura = sinais(discos(14, 190, 60, sigma), graosDe(14, 0.51F), {}).desfoque;
    EXPECT_NEAR(largura, 2.355 * sigma, 0.12 * 2.355 * sigma + 0.3) << sigma;
  }
  EXPECT_EQ(sinais(discos(14, 190, 60, 1), {}, {}).desfoque, 0);
}

TEST(Avisos, DesfoqueMaiorQueOsMenoresGraos) {
  const SINAIS s = sinais(discos(14, 190, 60, 4), graosDe(14, 0.51F), {});
  EXPECT_TRUE(tem(avisos({entre(9, 40, 200), {s}}, {4, 80}), DUVIDA::desfoque));
  EXPECT_FALSE(tem(avisos({entre(28, 40, 200), {s}}, {4, 80}), DUVIDA::desfoque));
}

}  // namespace
