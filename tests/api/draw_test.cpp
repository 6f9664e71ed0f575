#include "vorplex/draw.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "api/fotos.h"
#include "apoio/detector.h"
#include "draw/traca.h"
#include "estampa/contornos.h"
#include "measure/grao.h"

namespace {

using vorplex::Centre;
using vorplex::Outline;

const std::vector<vorplex::Detection> marcadas = {{0.5F, 'c', 20, 30, 17, 17, 0},
                                                  {0.4F, 'r', 12.5, 40.25, 21.5, 9.25, 33}};

vorplex::Picture emCinza(const cv::Mat_<unsigned char>& img) {
  return {img.data,
          {img.rows, img.cols},
          1,
          vorplex::Depth::bytes,
          static_cast<std::ptrdiff_t>(img.step[0])};
}

// Blue, green, red as red, green, blue.
std::vector<std::uint8_t> emRgb(const cv::Mat_<pim::VEC3B>& img) {
  std::vector<std::uint8_t> v;
  for (const pim::VEC3B& p : img) v.insert(v.end(), {p[2], p[1], p[0]});
  return v;
}

cv::Mat_<pim::VEC3B> colorida(const cv::Mat_<unsigned char>& img) {
  cv::Mat_<pim::VEC3B> cores;
  pim::converte(img, cores);
  return cores;
}

}  // namespace

TEST(Draw, ComoTraca) {
  const auto img = fotoDeGraos();
  std::vector<MAXLOCAL> v;
  for (const vorplex::Detection& d : marcadas) {
    v.push_back({d.correlation, d.shape, pim::arredonda(d.row), pim::arredonda(d.column), d.d1,
                 d.d2, d.angle});
  }
  const auto esperada = [&](const draw::TRACOS& t) {
    return emRgb(draw::traca(colorida(img), v, t, ""));
  };
  const auto desenhada = [&](const vorplex::DrawOptions& o) {
    return vorplex::draw(emCinza(img), marcadas, o);
  };
  EXPECT_EQ(desenhada({}), esperada({}));
  EXPECT_EQ(desenhada({Outline::bold, true, Centre::thin}), esperada({true, true, true, false}));
  EXPECT_EQ(desenhada({Outline::thin, false, Centre::bold}), esperada({false, false, true, true}));
}

TEST(Draw, ExatosComoApura) {
  const auto img = fotoDeGraos();
  std::vector<measure::GRAO> graos(marcadas.size());
  for (std::size_t i = 0; i < graos.size(); ++i) {
    const vorplex::Detection& d = marcadas[i];
    graos[i].indice = i;
    graos[i].figura = {d.shape, d.row, d.column, d.d1, d.d2, d.angle};
  }
  cv::Mat_<pim::VEC3B> cores = colorida(img);
  estampa::desenhaContornos(cores, graos);
  EXPECT_EQ(vorplex::draw(emCinza(img), marcadas, {Outline::exact}), emRgb(cores));
  estampa::desenhaIndices(cores, graos);
  EXPECT_EQ(vorplex::draw(emCinza(img), marcadas, {Outline::exact, true}), emRgb(cores));
  const auto comCentros =
      vorplex::draw(emCinza(img), marcadas, {Outline::exact, true, Centre::thin});
  const std::size_t centro = 3U * (20U * static_cast<std::size_t>(img.cols) + 30U);
  EXPECT_EQ(comCentros[centro], 0);
  EXPECT_EQ(comCentros[centro + 1], 255);
}

TEST(Draw, SemPixelsOuSemDeteccoes) {
  const auto img = fotoDeGraos();
  EXPECT_TRUE(vorplex::draw({}, marcadas, {Outline::exact, true, Centre::bold}).empty());
  EXPECT_TRUE(vorplex::draw({}, marcadas, {Outline::bold, true, Centre::bold}).empty());
  EXPECT_EQ(vorplex::draw(emCinza(img), {}), vorplex::rgb(emCinza(img)));
}

TEST(Draw, RecusaOQueNaoSePodeDesenhar) {
  const auto img = fotoDeGraos();
  const auto erro = [&](const vorplex::Detection& d, Outline o) {
    return erroDe([&] { vorplex::draw(emCinza(img), {d}, {o}); });
  };
  EXPECT_NE(erro({0.5F, 'c', 9, 9, 20000, 0, 0}, Outline::thin), "nada");
  EXPECT_EQ(erro({0.5F, 'x', 9, 9, 20, 0, 0}, Outline::exact), "Erro: Forma sem medida 0 x 20 0");
}

TEST(Labels, NumeradosNaOrdem) {
  const auto v =
      vorplex::labels({40, 50}, {{0.5F, 'q', 10, 10, 6, 0, 0}, {0.4F, 'c', 30, 40, 9, 0, 0}});
  ASSERT_EQ(v.size(), 2000U);
  EXPECT_EQ(v[10 * 50 + 10], 1);
  EXPECT_EQ(v[30 * 50 + 40], 2);
  EXPECT_EQ(v[0], 0);
  EXPECT_EQ(std::count(v.begin(), v.end(), 1), 36);
  EXPECT_EQ(std::count(v.begin(), v.end(), 2), 69);
  EXPECT_TRUE(vorplex::labels({0, 50}, {}).empty());
  EXPECT_EQ(erroDe([] { vorplex::labels({-1, 50}, {}); }), "image extent out of range");
  EXPECT_EQ(erroDe([] {
              vorplex::labels({9, 9}, {{0.5F, 'c', 1, 1, 0, 0, 0}});
            }),
            "Erro: Forma sem medida 0 c 0 0");
}
