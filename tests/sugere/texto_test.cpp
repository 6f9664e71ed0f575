#include "sugere/texto.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "kernels/grupos.h"
#include "kernels/lekernels.h"
#include "sugere/recado.h"

namespace {

// What looks like grains, of any shapes and sizes.
std::vector<sugere::INDICIO> sorteados(std::mt19937& sorteio) {
  std::uniform_real_distribution<double> u(0, 1);
  std::vector<sugere::INDICIO> v(sorteio() % 30);
  for (sugere::INDICIO& i : v) {
    const double d = 4 * std::pow(100, u(sorteio));
    i.figura = {"cqre"[sorteio() % 4], 0, 0, d, d, 0};
    if (i.figura.forma == 'r' || i.figura.forma == 'e') i.figura.d2 /= 1 + 9 * u(sorteio);
    i.diametro = std::sqrt(i.figura.d1 * i.figura.d2);
    i.apoio = 0.33 + 0.67 * u(sorteio);
    i.contraste = u(sorteio);
  }
  return v;
}

}  // namespace

TEST(TextoDaEscolha, SempreEhLidoDeVolta) {
  std::mt19937 sorteio(9);
  const sugere::VISTA vista{0, cv::Mat_<unsigned char>(900, 900), 1, 0, 0, 900, 1};
  for (int vez = 0; vez < 100; ++vez) {
    sugere::ESCOLHA e = sugere::escolhe({{vista, sorteados(sorteio), sorteados(sorteio)}}, 1);
    e.minCorr = vez % 2 == 0 ? 0.02 : 0.005;
    for (const auto lingua : {sugere::LINGUA::pt, sugere::LINGUA::en}) {
      const std::string texto = sugere::emKernelCfg(e, lingua);
      SCOPED_TRACE(texto);
      std::vector<MASCARA> v;
      kernels::leKernelsDoTexto(texto, "kernel.cfg", v, IMAGENS::nenhuma);
      EXPECT_FALSE(kernels::grupos(v).empty());
      const sugere::RECADO r = sugere::leRecado(texto, "kernel.cfg");
      EXPECT_EQ(r.inverte, e.inverte);
      EXPECT_EQ(r.minCorr, e.minCorr);
    }
  }
}

TEST(TextoDaEscolha, DizOQueViu) {
  sugere::ESCOLHA e;
  e.inverte = true;
  e.parte = 0.66;
  e.menor = 12;
  e.maior = 48.31;
  e.familias = {{'c', 1, 0.7}, {'e', 1.6, 0.295}, {'r', 4, 0.005}};
  e.linhas = {{'c', 1, 16, 32}};
  e.fotos.resize(3);
  EXPECT_EQ(sugere::emKernelCfg(e, sugere::LINGUA::en),
            "// kernel.cfg chosen by vorplex-sugere; photographs looked at: 3\n"
            "// Grains brighter than their ground (0.66 of what was seen).\n"
            "// There are bright and dark grains: those of the other polarity are left out.\n"
            "// Equivalent diameters seen: 12 to 48.3 pixels; the search goes somewhat beyond.\n"
            "// Share of the grains: circle 0.70, ellipse 1.6:1 0.29\n"
            "// vorplex-lote reads the line below: -i, bright grains; -c, smallest correlation.\n"
            "// vorplex-lote: -i -c 0.02\n"
            "escoitava 5\npassoang 15\nescala 0.5 a 1 piramide 1\ncirculo 32\n");
}
