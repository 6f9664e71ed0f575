#include "vorplex/search.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

#include "api/fotos.h"
#include "apoio/detector.h"
#include "apoio/figuras.h"
#include "apoio/pasta.h"
#include "detect/procura.h"
#include "kernels/lekernels.h"

namespace {

using LISTA = std::vector<vorplex::Detection>;

const std::string texto = "passoang 45 escoitava 2 circulo 21 quadrado 19 retangulo 24 11";

// The text of the list, so that a difference is shown.
std::string retratoDe(const LISTA& v) {
  std::vector<MAXLOCAL> maximos;
  for (const vorplex::Detection& d : v) {
    maximos.push_back({d.correlation, d.shape, static_cast<int>(d.row), static_cast<int>(d.column),
                       d.d1, d.d2, d.angle});
  }
  return listaHo(maximos);
}

vorplex::Kernels conjunto() {
  return vorplex::kernels_from_text(texto);
}

}  // namespace

TEST(Search, AchaOQueAProcuraAcha) {
  const PASTA pasta;
  grava("k.cfg", texto);
  std::vector<MASCARA> kernels;
  leKernels("k.cfg", kernels);
  const auto img = fotoDeGraos();
  const auto esperada = detect::procura(img, kernels, 0.05);
  ASSERT_GT(esperada.size(), 10U);
  EXPECT_EQ(retratoDe(vorplex::search(vista(img), conjunto(), 0.05)), listaHo(esperada));
}

TEST(Search, LinhasComFolgaEReaisDaoOMesmo) {
  const auto img = fotoDeGraos();
  const std::string esperada = retratoDe(vorplex::search(vista(img), conjunto(), 0.05));

  cv::Mat_<unsigned char> folgada(img.rows, img.cols + 13, static_cast<unsigned char>(77));
  const cv::Mat_<unsigned char> parte = folgada(cv::Rect(5, 0, img.cols, img.rows));
  img.copyTo(parte);
  EXPECT_EQ(retratoDe(vorplex::search(vista(parte), conjunto(), 0.05)), esperada);

  const cv::Mat_<float> reais = detect::emReais(img);
  const vorplex::FloatImage vistaReal = {reais[0], {reais.rows, reais.cols}, 0};
  EXPECT_EQ(retratoDe(vorplex::search(vistaReal, conjunto(), 0.05)), esperada);
}

TEST(Search, SemKernelsOuSemPixelsNaoAchaNada) {
  const auto img = fotoDeGraos();
  EXPECT_TRUE(vorplex::search(vista(img), {}).empty());
  EXPECT_TRUE(vorplex::search(vorplex::Image{}, conjunto()).empty());
  EXPECT_TRUE(vorplex::search(vorplex::Image{nullptr, {0, 7}, 0}, conjunto()).empty());
  EXPECT_TRUE(vorplex::search(vista(img), conjunto(), 2).empty());
}

TEST(Search, RecusaImagensQueNaoSao) {
  const auto img = fotoDeGraos();
  const auto procura = [](const vorplex::Image& i) { vorplex::search(i, conjunto()); };
  EXPECT_EQ(erroDe([&] { procura({nullptr, {3, 4}, 0}); }), "image without pixels");
  EXPECT_EQ(erroDe([&] { procura({img.data, {-1, 4}, 0}); }), "image extent out of range");
  EXPECT_EQ(erroDe([&] {
              procura({img.data, {1 << 16, 1 << 16}, 0});
            }),
            "image extent out of range");
  EXPECT_EQ(erroDe([&] {
              procura({img.data, {1, (1 << 20) + 1}, 0});
            }),
            "image extent out of range");
  EXPECT_EQ(erroDe([&] { procura({img.data, {3, 4}, 3}); }), "image stride out of range");
  EXPECT_EQ(erroDe([&] { procura({img.data, {3, 4}, -4}); }), "image stride out of range");
  const float real = 0;
  EXPECT_EQ(erroDe([&] {
              vorplex::search(vorplex::FloatImage{&real, {1, 1}, 6}, conjunto());
            }),
            "image stride out of range");
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(erroDe([&] { vorplex::search(vista(img), conjunto(), nan); }),
            "minimum correlation that is not finite");
}

TEST(Search, OAndamentoChegaAoFim) {
  const auto img = fotoDeGraos();
  vorplex::Progress ultimo;
  std::size_t vezes = 0;
  vorplex::search(vista(img), conjunto(), 0.05, [&](const vorplex::Progress& p) {
    EXPECT_LE(ultimo.groups_done, p.groups_done);
    EXPECT_LE(p.groups_done, p.groups);
    ultimo = p;
    ++vezes;
    return true;
  });
  EXPECT_GT(vezes, ultimo.groups);
  EXPECT_EQ(ultimo.groups_done, ultimo.groups);
  EXPECT_GT(ultimo.found, 10U);
}

TEST(Search, CanceladaNoMeioENoFim) {
  const auto img = fotoDeGraos();
  for (const bool noFim : {false, true}) {
    const auto progresso = [noFim](const vorplex::Progress& p) {
      return noFim && p.groups_done < p.groups;
    };
    EXPECT_THROW(vorplex::search(vista(img), conjunto(), 0.05, progresso), vorplex::Cancelled);
  }
}

// Even one that the library would have a name of its own for.
TEST(Search, OQueOAvisoLancaChegaComoE) {
  const auto img = fotoDeGraos();
  const auto procura = [&](const vorplex::ProgressCallback& p) {
    vorplex::search(vista(img), conjunto(), 0.05, p);
  };
  EXPECT_THROW(procura([](const vorplex::Progress&) -> bool { throw 42; }), int);
  EXPECT_THROW(procura([](const vorplex::Progress&) -> bool { throw std::out_of_range("meu"); }),
               std::out_of_range);
}
