#include "vorplex/filter.h"

#include <gtest/gtest.h>

#include <limits>

#include "api/fotos.h"
#include "apoio/detector.h"
#include "filter/filtinter.h"

namespace {

const vorplex::Extent foto = {100, 100};

vorplex::Detection circulo(float correlacao, double row, double column, double d) {
  return {correlacao, 'c', row, column, d, d, 0};
}

std::vector<float> correlacoes(const std::vector<vorplex::Detection>& v) {
  std::vector<float> c;
  for (const auto& d : v) c.push_back(d.correlation);
  return c;
}

}  // namespace

TEST(Filter, MantemOsMelhoresNaOrdemEComFracoes) {
  const std::vector<vorplex::Detection> v = {circulo(0.9F, 30.25, 30.75, 20),
                                             circulo(0.8F, 31, 31, 20), circulo(0.7F, 70.5, 70, 20),
                                             circulo(0.05F, 30, 70, 20)};
  const auto mantidos = vorplex::filter(foto, v);
  EXPECT_EQ(correlacoes(mantidos), (std::vector<float>{0.9F, 0.7F}));
  EXPECT_EQ(mantidos[0].row, 30.25);
  EXPECT_EQ(mantidos[0].column, 30.75);
  EXPECT_EQ(mantidos[1].row, 70.5);
}

TEST(Filter, CadaFormaTemOsSeusLimiares) {
  const std::vector<vorplex::Detection> v = {{0.5F, 'c', 20, 20, 10, 10, 0},
                                             {0.5F, 'q', 20, 50, 10, 10, 0},
                                             {0.5F, 'r', 50, 20, 14, 10, 0},
                                             {0.5F, 'e', 50, 50, 14, 10, 0}};
  const auto sem = [&](char letra) {
    vorplex::Thresholds t;
    const vorplex::Threshold alto = {0.6, 0.3};
    if (letra == 'c') t.circle = alto;
    if (letra == 'q') t.square = alto;
    if (letra == 'r') t.rectangle = alto;
    if (letra == 'e') t.ellipse = alto;
    std::string letras;
    for (const auto& d : vorplex::filter(foto, v, t)) letras += d.shape;
    return letras;
  };
  EXPECT_EQ(sem('-'), "cqre");
  EXPECT_EQ(sem('c'), "qre");
  EXPECT_EQ(sem('q'), "cre");
  EXPECT_EQ(sem('r'), "cqe");
  EXPECT_EQ(sem('e'), "cqr");
}

TEST(Filter, MantemOQueOFiltroMantem) {
  const auto img = fotoDeGraos();
  const auto kernels =
      vorplex::kernels_from_text("passoang 45 escoitava 2 circulo 21 quadrado 19 retangulo 24 11");
  const auto achados = vorplex::search(vista(img), kernels, 0.05);
  const auto mantidos = vorplex::filter({img.rows, img.cols}, achados);
  std::vector<MAXLOCAL> entrada;
  for (const auto& d : achados) {
    entrada.push_back({d.correlation, d.shape, static_cast<int>(d.row), static_cast<int>(d.column),
                       d.d1, d.d2, d.angle});
  }
  std::vector<MAXLOCAL> esperados;
  filtInter(entrada, esperados, img.size(), {{0.1, 0.3}, {0.1, 0.3}, {0.1, 0.3}, {0.1, 0.3}});
  ASSERT_GE(esperados.size(), 3U);
  ASSERT_LT(esperados.size(), entrada.size());
  ASSERT_EQ(mantidos.size(), esperados.size());
  for (std::size_t i = 0; i < mantidos.size(); ++i) {
    EXPECT_EQ(mantidos[i].correlation, esperados[i].correl) << i;
    EXPECT_EQ(mantidos[i].row, esperados[i].li) << i;
    EXPECT_EQ(mantidos[i].column, esperados[i].ci) << i;
  }
}

TEST(Filter, ListasEstranhasAcabamEmErroOuSaoFiltradas) {
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_TRUE(vorplex::filter(foto, {}).empty());
  EXPECT_TRUE(vorplex::filter({0, 0}, {circulo(0.9F, 0, 0, 20)}).empty());
  EXPECT_TRUE(vorplex::filter(foto, {circulo(0.9F, 1e300, nan, 20)}).empty());
  EXPECT_NE(erroDe([&] { vorplex::filter(foto, {circulo(0.9F, 5, 5, nan)}); }), "nada");
  EXPECT_NE(erroDe([&] { vorplex::filter(foto, {circulo(0.9F, 5, 5, 1e5)}); }), "nada");
  EXPECT_EQ(erroDe([&] { vorplex::filter({-1, 5}, {}); }), "image extent out of range");
}
