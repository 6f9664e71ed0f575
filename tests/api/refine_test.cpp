#include "vorplex/refine.h"

#include <gtest/gtest.h>

#include "api/fotos.h"
#include "apoio/detector.h"

namespace {

std::vector<vorplex::Detection> achados(const cv::Mat_<unsigned char>& img) {
  return vorplex::search(
      vista(img), vorplex::kernels_from_text("passoang 45 escoitava 2 circulo 21 quadrado 19"),
      0.05);
}

}  // namespace

TEST(Refine, GraosPorApoioEIguaisComQuantosFiosForem) {
  const auto img = fotoDeGraos();
  const auto v = achados(img);
  vorplex::RefineOptions opcoes;
  const auto um = vorplex::refine(vista(img), v, opcoes);
  opcoes.threads = 3;
  const auto tres = vorplex::refine(vista(img), v, opcoes);
  ASSERT_GT(um.size(), 2U);
  ASSERT_EQ(um.size(), tres.size());
  for (std::size_t i = 0; i < um.size(); ++i) {
    EXPECT_EQ(um[i].detection.row, tres[i].detection.row) << i;
    EXPECT_EQ(um[i].detection.d1, tres[i].detection.d1) << i;
    EXPECT_GE(um[i].detection.d1, um[i].detection.d2) << i;
    EXPECT_GT(um[i].row_error, 0) << i;
    EXPECT_GT(um[i].contrast, 0) << i;
    EXPECT_LE(um[i].support, um[i == 0 ? 0 : i - 1].support) << i;
  }
}

TEST(Refine, SoAsFormasPedidas) {
  const auto img = fotoDeGraos();
  vorplex::RefineOptions opcoes;
  opcoes.shapes = "q";
  const auto graos = vorplex::refine(vista(img), achados(img), opcoes);
  ASSERT_FALSE(graos.empty());
  for (const auto& g : graos) EXPECT_EQ(g.detection.shape, 'q');
}

TEST(Refine, NadaDeNada) {
  const auto img = fotoDeGraos();
  EXPECT_TRUE(vorplex::refine(vista(img), {}).empty());
  EXPECT_TRUE(vorplex::refine({}, achados(img)).empty());
  EXPECT_TRUE(vorplex::refine(vista(img), {{0.5F, 'c', -3, 5, 10, 10, 0}}).empty());
}

TEST(Refine, OpcoesForaDosLimitesSaoRecusadas) {
  const auto img = fotoDeGraos();
  const auto erroCom = [&](auto muda) {
    vorplex::RefineOptions opcoes;
    muda(opcoes);
    return erroDe([&] { vorplex::refine(vista(img), {}, opcoes); });
  };
  EXPECT_EQ(erroCom([](auto& o) { o.shapes = "x"; }), "Erro: Familias invalidas x");
  EXPECT_EQ(erroCom([](auto& o) { o.min_size = -1; }), "sizes out of range");
  EXPECT_EQ(erroCom([](auto& o) { o.max_size = 0; }), "sizes out of range");
  EXPECT_EQ(erroCom([](auto& o) { o.max_overlap = 1.5; }), "overlap out of range");
  EXPECT_EQ(erroCom([](auto& o) { o.sensitivity = -0.1; }), "sensitivity out of range");
  EXPECT_EQ(erroCom([](auto& o) { o.threads = 0; }), "number of threads out of range");
}

TEST(Refine, CanceladoOuComOQueOAvisoLanca) {
  const auto img = fotoDeGraos();
  const auto v = achados(img);
  int vezes = 0;
  vorplex::refine(vista(img), v, {}, [&] { return ++vezes > 0; });
  EXPECT_GT(vezes, 3);
  for (int fica = 0; fica < vezes; ++fica) {
    int chamadas = 0;
    EXPECT_THROW(vorplex::refine(vista(img), v, {}, [&] { return chamadas++ < fica; }),
                 vorplex::Cancelled);
    EXPECT_EQ(chamadas, fica + 1);
  }
  EXPECT_THROW(vorplex::refine(vista(img), v, {}, []() -> bool { throw 42; }), int);
}
