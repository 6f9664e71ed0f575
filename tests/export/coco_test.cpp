#include "export/coco.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "apoio/erros.h"
#include "apoio/pasta.h"
#include "leitores.h"

using namespace measure;
using namespace exporta;

namespace {

JSON exportaCoco(const std::vector<FOTOGRAFIA>& fotos, IDIOMA idioma = IDIOMA::pt) {
  const PASTA pasta;
  COCO c = abreCoco("coco.json", idioma);
  for (const FOTOGRAFIA& f : fotos) acrescenta(c, f, f.nome + ".png");
  conclui(std::move(c));
  return leJson(leTudo("coco.json"));
}

FOTOGRAFIA fotoDe(const std::vector<MAXLOCAL>& v, int rows = 100, int cols = 120) {
  return {"f", rows, cols, {}, medeTodos(v, rows, cols)};
}

std::vector<double> numerosDe(const JSON& lista) {
  std::vector<double> v;
  for (const JSON& j : lista.lista) v.push_back(j.numero);
  return v;
}

// The area of x0, y0, x1, y1, ... by trapezia above y = 0.
double areaPorTrapezios(const std::vector<double>& p) {
  double soma = 0;
  for (std::size_t i = 0; i < p.size(); i += 2) {
    const std::size_t j = (i + 2) % p.size();
    soma += (p[j] - p[i]) * (p[i + 1] + p[j + 1]) / 2;
  }
  return std::abs(soma);
}

TEST(Coco, UmRetanguloPixelPorPixel) {
  const JSON j = exportaCoco({fotoDe({{0.5F, 'r', 30, 70, 20, 10, 0}})});
  ASSERT_EQ(j["annotations"].lista.size(), 1U);
  const JSON& a = j["annotations"][0];
  EXPECT_EQ(numerosDe(a["bbox"]), (std::vector<double>{60.5, 25.5, 20, 10}));
  EXPECT_EQ(a["area"].numero, 200);
  ASSERT_EQ(a["segmentation"].lista.size(), 1U);
  EXPECT_EQ(numerosDe(a["segmentation"][0]),
            (std::vector<double>{60.5, 25.5, 80.5, 25.5, 80.5, 35.5, 60.5, 35.5}));
  EXPECT_EQ(a["iscrowd"].numero, 0);
  EXPECT_EQ(a["score"].numero, 0.5);
}

TEST(Coco, IdentidadesCorremPeloConjuntoEAsCategoriasSaoAsFormas) {
  FOTOGRAFIA outra = fotoDeExemplo();
  outra.nome = "norte/pilha \"2\"";
  const JSON j = exportaCoco({fotoDeExemplo(), fotoDe({}), outra}, IDIOMA::en);
  ASSERT_EQ(j["images"].lista.size(), 3U);
  EXPECT_EQ(j["images"][2]["id"].numero, 3);
  EXPECT_EQ(j["images"][2]["file_name"].texto, "norte/pilha \"2\".png");
  EXPECT_EQ(j["images"][2]["width"].numero, 120);
  EXPECT_EQ(j["images"][2]["height"].numero, 100);
  const std::size_t porFoto = outra.graos.size();
  ASSERT_EQ(j["annotations"].lista.size(), 2 * porFoto);
  for (std::size_t i = 0; i < 2 * porFoto; ++i) {
    const JSON& a = j["annotations"][i];
    EXPECT_EQ(a["id"].numero, static_cast<double>(i + 1));
    EXPECT_EQ(a["image_id"].numero, i < porFoto ? 1 : 3);
    const GRAO& g = outra.graos[i % porFoto];
    EXPECT_EQ(a["grain"].numero, static_cast<double>(g.indice));
    const auto categoria = static_cast<std::size_t>(a["category_id"].numero);
    EXPECT_EQ(j["categories"][categoria - 1]["id"].numero, a["category_id"].numero);
    EXPECT_EQ(j["categories"][categoria - 1]["name"].texto,
              nomeDaForma(g.figura.forma, IDIOMA::en));
  }
  EXPECT_EQ(j["categories"][0]["supercategory"].texto, "grain");
}

// Whatever its shape, angle and place: the area is that of the polygon, and nearly that of the
// shape where the picture holds all of it; the box is just around the polygon.
TEST(Coco, AreaECaixaSaoAsDoPoligono) {
  std::vector<MAXLOCAL> v;
  for (const char forma : {'c', 'q', 'r', 'e'}) {
    for (const float angulo : {0.F, 17.F, 90.F, 133.F}) {
      v.push_back({0.5F, forma, 50, 60, 31, 17, angulo});
      v.push_back({0.5F, forma, 2, 118, 31, 17, angulo});
    }
  }
  const FOTOGRAFIA foto = fotoDe(v);
  const JSON j = exportaCoco({foto});
  ASSERT_EQ(j["annotations"].lista.size(), v.size());
  for (std::size_t k = 0; k < v.size(); ++k) {
    const JSON& a = j["annotations"][k];
    const std::vector<double> p = numerosDe(a["segmentation"][0]);
    ASSERT_GE(p.size(), 6U);
    std::vector<double> x;
    std::vector<double> y;
    for (std::size_t i = 0; i < p.size(); i += 2) {
      x.push_back(p[i]);
      y.push_back(p[i + 1]);
    }
    const auto [x0, x1] = std::ranges::minmax(x);
    const auto [y0, y1] = std::ranges::minmax(y);
    EXPECT_TRUE(x0 >= 0 && x1 <= 120 && y0 >= 0 && y1 <= 100);
    const std::vector<double> caixa = numerosDe(a["bbox"]);
    EXPECT_EQ(caixa[0], x0);
    EXPECT_EQ(caixa[1], y0);
    EXPECT_NEAR(caixa[2], x1 - x0, 1e-7);
    EXPECT_NEAR(caixa[3], y1 - y0, 1e-7);
    EXPECT_NEAR(a["area"].numero, areaPorTrapezios(p), 1e-5);
    const GRAO& g = foto.graos[k];
    if (!g.tocaBorda) {
      EXPECT_NEAR(a["area"].numero, g.area, 0.02 * g.perimetro);
    } else {
      EXPECT_LT(a["area"].numero, 0.75 * g.area);
    }
  }
}

TEST(Coco, OQueFicaForaDaFotografiaNaoEhAnotado) {
  const JSON j = exportaCoco({fotoDe({{0.5F, 'c', 50, 200, 20, 20, 0},
                                      {0.5F, 'c', 50, 60, 20, 20, 0},
                                      {0.5F, 'q', -11, 60, 20, 20, 0}})});
  ASSERT_EQ(j["annotations"].lista.size(), 1U);
  EXPECT_EQ(j["annotations"][0]["id"].numero, 1);
  EXPECT_EQ(j["annotations"][0]["grain"].numero, 1);
}

// Half a disc lies in the picture: pi r^2 / 2.
TEST(Coco, UmDiscoCortadoAoMeio) {
  const JSON j = exportaCoco(
      {fotoDe({{0.5F, 'q', 49, 119, 40, 40, 0}}), fotoDe({{0.5F, 'c', 49, 119, 40, 40, 0}})});
  EXPECT_EQ(numerosDe(j["annotations"][0]["bbox"]), (std::vector<double>{99.5, 29.5, 20.5, 40}));
  EXPECT_EQ(j["annotations"][0]["area"].numero, 820);
  EXPECT_NEAR(j["annotations"][1]["area"].numero, std::numbers::pi * 200 + 20, 1);
}

TEST(Coco, SemFotografiasAsListasSaoVazias) {
  const JSON j = exportaCoco({});
  EXPECT_TRUE(j["images"].lista.empty());
  EXPECT_TRUE(j["annotations"].lista.empty());
  EXPECT_EQ(j["categories"].lista.size(), 4U);
}

TEST(Coco, DiscoCheioEhErro) {
  const PASTA pasta;
  std::filesystem::create_symlink("/dev/full", "c.json.parcial");
  EXPECT_EQ(erroDe([&] { conclui(abreCoco("c.json")); }), "Erro gravacao arquivo c.json.parcial");
}

}  // namespace
