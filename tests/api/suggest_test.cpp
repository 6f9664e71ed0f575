#include "vorplex/suggest.h"

#include <gtest/gtest.h>

#include "api/fotos.h"
#include "apoio/detector.h"

namespace {

cv::Mat_<unsigned char> ladrilhos() {
  cv::Mat_<unsigned char> img;
  cv::repeat(fotoDeGraos(), 3, 3, img);
  return img;
}

}  // namespace

TEST(Suggest, UmTextoQueSeLe) {
  const auto img = ladrilhos();
  const auto s = vorplex::suggest({vista(img)});
  EXPECT_TRUE(s.found);
  EXPECT_FALSE(s.bright);
  EXPECT_FALSE(s.both);
  EXPECT_GT(s.share, 0.8);
  EXPECT_NEAR(s.min_size, 15, 2);
  EXPECT_NEAR(s.max_size, 21.5, 2);
  EXPECT_NE(s.shapes.find('c'), std::string::npos);
  const auto kernels = vorplex::kernels_from_text(s.text);
  EXPECT_FALSE(vorplex::search(vista(img), kernels, s.min_correlation).empty());
}

TEST(Suggest, OInversoEhClaro) {
  cv::Mat_<unsigned char> img = ladrilhos();
  img = 255 - img;
  EXPECT_TRUE(vorplex::suggest({vista(img)}).bright);
  vorplex::SuggestOptions opcoes;
  opcoes.bright = false;
  EXPECT_FALSE(vorplex::suggest({vista(img)}, opcoes).bright);
}

TEST(Suggest, AOrdemNaoImporta) {
  const auto a = ladrilhos();
  const auto b = fotoDeGraos();
  cv::Mat_<unsigned char> c;
  c = b / 2;
  vorplex::SuggestOptions opcoes;
  opcoes.english = true;
  const auto s = vorplex::suggest({vista(a), vista(b), vista(c)}, opcoes);
  opcoes.threads = 3;
  EXPECT_EQ(vorplex::suggest({vista(c), vista(a), vista(b)}, opcoes).text, s.text);
  opcoes.sample = 2;
  EXPECT_EQ(vorplex::suggest({vista(c), vista(a), vista(b)}, opcoes).text,
            vorplex::suggest({vista(b), vista(c), vista(a)}, opcoes).text);
}

TEST(Suggest, SemGraosOTextoGeral) {
  const cv::Mat_<unsigned char> img(50, 50, static_cast<unsigned char>(90));
  for (const auto& s : {vorplex::suggest({vista(img)}), vorplex::suggest({})}) {
    EXPECT_FALSE(s.found);
    EXPECT_EQ(s.shapes, "cqre");
    EXPECT_FALSE(vorplex::list_kernels(vorplex::kernels_from_text(s.text)).empty());
  }
}

TEST(Suggest, OpcoesForaDosLimitesSaoRecusadas) {
  const auto erroCom = [](auto muda) {
    vorplex::SuggestOptions opcoes;
    muda(opcoes);
    return erroDe([&] { vorplex::suggest({}, opcoes); });
  };
  EXPECT_EQ(erroCom([](auto& o) { o.shapes = "x"; }), "shapes out of range");
  EXPECT_EQ(erroCom([](auto& o) { o.sample = 0; }), "sample out of range");
  EXPECT_EQ(erroCom([](auto& o) { o.threads = 0; }), "number of threads out of range");
}
