#include "examples/cenas/cena.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace {

// A kind without anything that would move an edge: even ground and grains, no noise.
cenas::TIPO liso(std::string_view familias) {
  cenas::TIPO t{.nome = "liso", .linhas = 120, .colunas = 120};
  t.populacao = {.familias = familias, .quantos = {1, 1}, .tamanho = {30, 50}, .cortados = 0};
  t.aspecto = {.contraste = {0.5, 0.5}, .relevo = 0, .manchas = 0};
  t.chao = {.claro = 0.8, .fina = 0, .media = 0, .larga = 0};
  t.camera = {.gradiente = {0, 0}, .vinheta = {0, 0}, .ruido = {0, 0}, .fotons = {0, 0}};
  return t;
}

// What a lone grain takes from a ground of 204 grey levels, in grains' pixels.
struct FALTA {
  double area = 0;
  double linha = 0;
  double coluna = 0;
};

FALTA falta(const cv::Mat_<unsigned char>& foto) {
  FALTA f;
  for (int l = 0; l < foto.rows; ++l) {
    for (int c = 0; c < foto.cols; ++c) {
      const double parte = (204 - foto(l, c)) / 102.0;
      f.area += parte;
      f.linha += parte * l;
      f.coluna += parte * c;
    }
  }
  f.linha /= f.area;
  f.coluna /= f.area;
  return f;
}

}  // namespace

TEST(Cena, VerdadeConfereComOsPixels) {
  for (const char* familia : {"c", "q", "r", "e"}) {
    for (const std::uint64_t semente : {1U, 2U, 3U}) {
      const cenas::CENA cena = cenas::renderiza(liso(familia), semente, {120, 120});
      ASSERT_EQ(cena.graos.size(), 1U);
      const GRAO& g = cena.graos[0].verdade;
      const FALTA f = falta(cena.foto);
      EXPECT_NEAR(std::sqrt(4 * f.area / std::numbers::pi), diametro(g), 0.002 * diametro(g));
      EXPECT_NEAR(f.linha, g.linha, 0.02);
      EXPECT_NEAR(f.coluna, g.coluna, 0.02);
    }
  }
}

TEST(Cena, IrregularesTemAAreaDaVerdade) {
  cenas::TIPO t = liso("e");
  for (const cenas::FEITIO feitio : {cenas::FEITIO::ondulado, cenas::FEITIO::pedra,
                                     cenas::FEITIO::superelipse, cenas::FEITIO::oblongo}) {
    t.populacao.feitio = feitio;
    t.populacao.irregular =
        feitio == cenas::FEITIO::superelipse ? cenas::FAIXA{3, 4} : cenas::FAIXA{0.03, 0.05};
    const cenas::CENA cena = cenas::renderiza(t, 4, {120, 120});
    ASSERT_EQ(cena.graos.size(), 1U);
    const GRAO& g = cena.graos[0].verdade;
    EXPECT_NEAR(std::sqrt(4 * falta(cena.foto).area / std::numbers::pi), diametro(g),
                0.003 * diametro(g));
  }
}

TEST(Cena, SombraCaiLongeDaLuzENaoSobreOGrao) {
  cenas::TIPO t = liso("c");
  const cenas::CENA sem = cenas::renderiza(t, 6, {120, 120});
  t.aspecto.sombra = {0.4, 0.4};
  t.aspecto.alcanceSombra = {6, 6};
  const cenas::CENA com = cenas::renderiza(t, 6, {120, 120});
  const FIGURA grao(crescido(sem.graos[0].verdade, -4));
  int mudadosDentro = 0;
  double escurecido = 0;
  for (int l = 0; l < 120; ++l) {
    for (int c = 0; c < 120; ++c) {
      const int escureceu = sem.foto(l, c) - com.foto(l, c);
      if (grao.dentro(l, c) && escureceu != 0) ++mudadosDentro;
      escurecido += escureceu;
    }
  }
  EXPECT_EQ(mudadosDentro, 0);
  EXPECT_GT(escurecido, 2000);
}
