#include "export/geojson.h"

#include <gtest/gtest.h>

#include <cmath>

#include "apoio/erros.h"
#include "apoio/pasta.h"
#include "export/colunas.h"
#include "leitores.h"
#include "measure/contorno.h"

using namespace measure;
using namespace exporta;

namespace {

JSON exporta(const FOTOGRAFIA& foto, IDIOMA idioma = IDIOMA::pt) {
  const PASTA pasta;
  impGeojson(foto, "g.geojson", idioma);
  return leJson(leTudo("g.geojson"));
}

const JSON& anel(const JSON& feicao) {
  EXPECT_EQ(feicao["geometry"]["type"].texto, "Polygon");
  EXPECT_EQ(feicao["geometry"]["coordinates"].lista.size(), 1U);
  return feicao["geometry"]["coordinates"][0];
}

double areaComSinal(const JSON& pontos) {
  double soma = 0;
  for (std::size_t i = 0; i + 1 < pontos.lista.size(); ++i) {
    soma += pontos[i][0].numero * pontos[i + 1][1].numero -
            pontos[i + 1][0].numero * pontos[i][1].numero;
  }
  return soma / 2;
}

TEST(Geojson, ColecaoDePoligonosFechadosNoSentidoAntiHorario) {
  const FOTOGRAFIA foto = fotoDeExemplo();
  const JSON j = exporta(foto);
  EXPECT_EQ(j["type"].texto, "FeatureCollection");
  ASSERT_EQ(j["features"].lista.size(), foto.graos.size());
  for (std::size_t i = 0; i < foto.graos.size(); ++i) {
    const JSON& feicao = j["features"][i];
    EXPECT_EQ(feicao["type"].texto, "Feature");
    EXPECT_EQ(feicao["id"].numero, static_cast<double>(i));
    const JSON& pontos = anel(feicao);
    ASSERT_GE(pontos.lista.size(), 5U);
    for (const JSON& p : pontos.lista) ASSERT_EQ(p.lista.size(), 2U);
    EXPECT_EQ(pontos.lista.front()[0].numero, pontos.lista.back()[0].numero);
    EXPECT_EQ(pontos.lista.front()[1].numero, pontos.lista.back()[1].numero);
    const double area = foto.graos[i].area;
    EXPECT_LE(areaComSinal(pontos), area * 1.000001);
    EXPECT_GE(areaComSinal(pontos), area - 0.02 * foto.graos[i].perimetro);
  }
}

TEST(Geojson, XEhAColunaEYEhALinha) {
  const FOTOGRAFIA foto = {
      "f", 100, 100, {}, medeTodos({{0.5F, 'r', 30, 70, 20, 10, 0}}, 100, 100)};
  const JSON j = exporta(foto);
  const JSON& p = anel(j["features"][0]);
  const double esperados[][2] = {{60, 25}, {80, 25}, {80, 35}, {60, 35}, {60, 25}};
  ASSERT_EQ(p.lista.size(), 5U);
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_EQ(p[i][0].numero, esperados[i][0]);
    EXPECT_EQ(p[i][1].numero, esperados[i][1]);
  }
}

TEST(Geojson, ComEscalaAsCoordenadasSaoCalibradas) {
  const FOTOGRAFIA foto = {
      "f", 100, 100, {0.5, UNIDADE::mm}, medeTodos({{0.5F, 'q', 30, 70, 20, 20, 0}}, 100, 100)};
  const JSON j = exporta(foto);
  EXPECT_EQ(anel(j["features"][0])[0][0].numero, 30);
  EXPECT_EQ(anel(j["features"][0])[0][1].numero, 10);
  EXPECT_EQ(areaComSinal(anel(j["features"][0])), 100);
  EXPECT_EQ(j["features"][0]["properties"]["area_mm2"].numero, 100);
}

TEST(Geojson, AsPropriedadesSaoAsColunasDoGrao) {
  for (const IDIOMA idioma : {IDIOMA::pt, IDIOMA::en}) {
    const JSON j = exporta(fotoDeExemplo({0.5, UNIDADE::mm}), idioma);
    const JSON& propriedades = j["features"][2]["properties"];
    const std::vector<std::string> nomes = nomesDoGrao(METODO::classico, UNIDADE::mm, idioma);
    EXPECT_EQ(propriedades.objeto.size(), nomes.size());
    for (const std::string& nome : nomes) EXPECT_EQ(propriedades.objeto.count(nome), 1U) << nome;
  }
  const JSON j = exporta(fotoDeExemplo());
  const JSON& p = j["features"][2]["properties"];
  EXPECT_EQ(p["forma"].texto, "retangulo");
  EXPECT_EQ(p["linha_px"].numero, 32);
  EXPECT_EQ(p["toca_borda"].tipo, JSON::TIPO::logico);
  EXPECT_FALSE(p["toca_borda"].logico);
}

TEST(Geojson, SemGraosEhUmaColecaoVazia) {
  const JSON j = exporta({"f", 9, 9, {}, {}});
  EXPECT_TRUE(j["features"].lista.empty());
}

TEST(Geojson, PontosFicamAUmDecimoDeMilesimoDoContorno) {
  const FOTOGRAFIA foto = {"f", 9, 9, {}, medeTodos({{0.5F, 'e', 4000, 70000, 31, 17, 25}}, 9, 9)};
  const JSON j = exporta(foto);
  const std::vector<PONTO> v = contorno(foto.graos[0].figura, 0.02);
  ASSERT_EQ(anel(j["features"][0]).lista.size(), v.size() + 1);
  for (std::size_t i = 0; i < v.size(); ++i) {
    EXPECT_NEAR(anel(j["features"][0])[i][0].numero, v[i].x, 1e-4);
    EXPECT_NEAR(anel(j["features"][0])[i][1].numero, v[i].y, 1e-4);
  }
}

TEST(Geojson, DiscoCheioEhErro) {
  const PASTA pasta;
  std::filesystem::create_symlink("/dev/full", "g.geojson.parcial");
  EXPECT_EQ(erroDe([&] { impGeojson(fotoDeExemplo(), "g.geojson"); }),
            "Erro gravacao arquivo g.geojson.parcial");
}

}  // namespace
