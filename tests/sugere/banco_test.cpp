#include "sugere/banco.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

#include "kernels/grupos.h"
#include "kernels/lekernels.h"

namespace {

std::vector<MASCARA> leBanco(const std::string& texto) {
  std::vector<MASCARA> v;
  kernels::leKernelsDoTexto(texto, "banco", v, IMAGENS::nenhuma);
  return v;
}

double diametro(const MASCARA& m) {
  const bool reta = m.forma == 'q' || m.forma == 'r';
  return std::sqrt(m.d1 * m.d2 * (reta ? 4 / std::numbers::pi : 1));
}

// Diameters at which some kernel looks for the family, on whatever level, in order.
std::vector<double> procurados(const std::vector<MASCARA>& v, char forma) {
  std::vector<double> d;
  for (const MASCARA& m : v) {
    if (m.forma != forma || m.ang != 0) continue;
    for (int s = 0; s <= std::min(m.sPir, 3); ++s) d.push_back(diametro(m) * (1 << s));
  }
  std::sort(d.begin(), d.end());
  return d;
}

}  // namespace

TEST(Banco, SemLinhasSoOsAjustes) {
  EXPECT_EQ(sugere::texto({}, {}), "escoitava 5\npassoang 15\n");
}

TEST(Banco, QuaseComoSeEscreveAMao) {
  EXPECT_EQ(sugere::texto({{'c', 1, 16, 32}, {'e', 1.6, 16, 64}}, {10, 4}),
            "escoitava 4\npassoang 10\nescala 0.5 a 1 piramide 1\ncirculo 32\n"
            "escala 0.5 a 1 piramide 2\nelipse 40.5 25.3\n");
}

// Whatever the range, the text is read, makes groups, and leaves no gap of more than the steps
// within it, as far as shapes can be drawn and the pyramid reaches.
TEST(Banco, QualquerAlcanceEhLidoECoberto) {
  std::mt19937 sorteio(5);
  std::uniform_real_distribution<double> expoente(0, 1);
  for (int vez = 0; vez < 150; ++vez) {
    const double menor = 2 * std::pow(300, expoente(sorteio));
    const double maior = menor * std::pow(40, expoente(sorteio));
    const char forma = "cqre"[vez % 4];
    const double proporcao = vez % 4 < 2 ? 1 : 1 + 6 * expoente(sorteio);
    const sugere::PASSOS passos{30, 2 + vez % 4};
    const std::string texto = sugere::texto({{forma, proporcao, menor, maior}}, passos);
    SCOPED_TRACE(texto);
    const auto v = leBanco(texto);
    ASSERT_FALSE(kernels::grupos(v).empty());
    const auto d = procurados(v, forma);
    const double degrau = std::pow(2, 1.01 / passos.oitava);
    const double limite = forma == 'c' ? 3 : 5 * std::sqrt(proporcao);
    EXPECT_LE(d.front(), std::max(menor, limite) * degrau);
    EXPECT_GE(d.back() * degrau, maior);
    for (std::size_t i = 1; i < d.size(); ++i) {
      EXPECT_LE(d[i] / d[i - 1], std::pow(2, 1.5 / passos.oitava)) << d[i];
    }
  }
}
