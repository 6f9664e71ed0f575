#include "vorplex/measure.h"

#include <gtest/gtest.h>

#include <limits>
#include <numbers>

#include "api/fotos.h"
#include "measure/resumo.h"

namespace {

const vorplex::Extent fotoLarga = {100, 200};

}  // namespace

TEST(Measure, UmRetanguloComFracoesDePixel) {
  const auto v = vorplex::measure(fotoLarga, {{0.5F, 'r', 50.5, 60.25, 12, 20, 90}});
  ASSERT_EQ(v.size(), 1U);
  EXPECT_EQ(v[0].detection.row, 50.5);
  EXPECT_EQ(v[0].area, 240);
  EXPECT_EQ(v[0].perimeter, 64);
  EXPECT_EQ(v[0].lesser, 12);
  EXPECT_EQ(v[0].greater, 20);
  EXPECT_DOUBLE_EQ(v[0].elongation, 20.0 / 12);
  EXPECT_DOUBLE_EQ(v[0].equivalent, std::sqrt(4 * 240 / std::numbers::pi));
  EXPECT_FALSE(v[0].touches_border);
}

// Half a pixel beyond the centres of the outermost is the border.
TEST(Measure, ABordaDecideSePorFracoes) {
  const auto toca = [](double row) {
    return vorplex::measure(fotoLarga, {{0.5F, 'q', row, 60, 10, 10, 0}})[0].touches_border;
  };
  EXPECT_FALSE(toca(4.5));
  EXPECT_TRUE(toca(4.4));
  EXPECT_FALSE(toca(94.5));
  EXPECT_TRUE(toca(94.6));
}

TEST(Measure, DistribuicaoEmMilimetros) {
  std::vector<vorplex::Detection> v;
  for (int i = 1; i <= 4; ++i) v.push_back({0.5F, 'c', 50, 50, 10.0 * i, 10.0 * i, 0});
  const auto graos = vorplex::measure(fotoLarga, v);
  const auto d = vorplex::distribution(graos, vorplex::parse_scale("0.1 mm"));
  EXPECT_EQ(d.grains, 4U);
  EXPECT_DOUBLE_EQ(d.d50.value(), 2.5);
  EXPECT_DOUBLE_EQ(d.mean.value(), 2.5);
  const auto porVolume =
      vorplex::distribution(graos, {}, vorplex::Size::greater, vorplex::Weight::volume);
  EXPECT_DOUBLE_EQ(porVolume.mean.value(), 10.0 * (1 + 16 + 81 + 256) / (1 + 8 + 27 + 64));
  EXPECT_FALSE(vorplex::distribution({}).d50.has_value());
}

TEST(Measure, IntervalosComoOsDeUmaCorrida) {
  std::vector<vorplex::Refined> v(30);
  measure::FOTOGRAFIA fotografia = {"", 100, 200, {0.1, measure::UNIDADE::mm}, {}, {}};
  std::vector<refine::APURADO> apurados;
  for (std::size_t i = 0; i < v.size(); ++i) {
    const double d = 10 + static_cast<double>(i * i % 17);
    v[i].detection = {0.5F, i % 2 == 0 ? 'e' : 'c', 50, 50, d, i % 2 == 0 ? d / 2 : d, 0};
    v[i].d1_error = 0.5;
    v[i].d2_error = 0.25;
    const vorplex::Detection& f = v[i].detection;
    apurados.push_back({{f.shape, f.row, f.column, f.d1, f.d2, f.angle},
                        f.correlation,
                        0,
                        0,
                        {0, 0, 0.5, 0.25, 0}});
  }
  fotografia.graos = measure::medeApurados(apurados, fotografia.rows, fotografia.cols);
  const measure::INTERVALOS esperados =
      measure::resume(fotografia, measure::GRANDEZA::maior, measure::PESO::area, {}).intervalos;
  const vorplex::Sample amostra = {vorplex::measure_refined(fotoLarga, v),
                                   vorplex::parse_scale("0.1mm")};
  const auto i = vorplex::intervals({amostra}, vorplex::Size::greater, vorplex::Weight::area);
  EXPECT_EQ(i.pictures, 1U);
  EXPECT_EQ(i.low.d50, measure::valorD(esperados.de, 50));
  EXPECT_EQ(i.high.d50, measure::valorD(esperados.ate, 50));
  EXPECT_EQ(i.low.sorting, esperados.de.selecao);
  EXPECT_LT(*i.low.d50, *i.high.d50);
  // More pictures like this one are more grains.
  const auto tres = vorplex::intervals({amostra, amostra, amostra}, vorplex::Size::greater,
                                       vorplex::Weight::area);
  EXPECT_EQ(tres.pictures, 3U);
  EXPECT_LT(*tres.high.d50 - *tres.low.d50, *i.high.d50 - *i.low.d50);
  EXPECT_FALSE(vorplex::intervals({}).low.d50.has_value());
  EXPECT_EQ(erroDe([&] {
              vorplex::intervals({amostra, {{}, {}}});
            }),
            "pictures in different units");
}

// Each unit keeps its place in both enumerations.
TEST(Measure, EscalasDeTodasAsUnidades) {
  using vorplex::Unit;
  EXPECT_EQ(vorplex::parse_scale("2um").unit, Unit::um);
  EXPECT_EQ(vorplex::parse_scale("2mm").unit, Unit::mm);
  EXPECT_EQ(vorplex::parse_scale("2cm").unit, Unit::cm);
  EXPECT_EQ(vorplex::parse_scale("2m").unit, Unit::m);
  EXPECT_EQ(vorplex::parse_scale("2in").unit, Unit::in);
  EXPECT_EQ(vorplex::parse_scale("2in").side, 2);
  const auto graos = vorplex::measure(fotoLarga, {{0.5F, 'r', 50, 50, 10, 40, 0}});
  const auto tamanho = [&](vorplex::Size s) {
    return vorplex::distribution(graos, {}, s).mean.value();
  };
  EXPECT_EQ(tamanho(vorplex::Size::lesser), 10);
  EXPECT_EQ(tamanho(vorplex::Size::greater), 40);
  EXPECT_EQ(tamanho(vorplex::Size::equivalent), graos[0].equivalent);
}

TEST(Measure, OQueNaoTemMedidaERecusado) {
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_NE(erroDe([] { vorplex::measure(fotoLarga, {{0.5F, 'x', 5, 5, 5, 5, 0}}); }), "nada");
  EXPECT_NE(erroDe([] { vorplex::measure(fotoLarga, {{0.5F, 'c', nan, 5, 5, 5, 0}}); }), "nada");
  EXPECT_NE(erroDe([] { vorplex::measure(fotoLarga, {{0.5F, 'c', 5, 5, 0, 5, 0}}); }), "nada");
  EXPECT_EQ(erroDe([] { vorplex::distribution({vorplex::Grain{}}); }), "grain without a size");
  auto comErro = vorplex::measure(fotoLarga, {{0.5F, 'c', 5, 5, 5, 5, 0}});
  comErro[0].d1_error = nan;
  EXPECT_EQ(erroDe([&] { vorplex::distribution(comErro); }), "standard error out of range");
  EXPECT_EQ(erroDe([] {
              vorplex::distribution({}, {0, vorplex::Unit::mm});
            }),
            "scale out of range");
  EXPECT_EQ(erroDe([] {
              vorplex::distribution({}, {2, vorplex::Unit::px});
            }),
            "a scale needs a unit");
  EXPECT_NE(erroDe([] { vorplex::parse_scale("2 miles"); }), "nada");
}
