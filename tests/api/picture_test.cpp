#include "vorplex/picture.h"

#include <gtest/gtest.h>

#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "api/fotos.h"
#include "apoio/pasta.h"
#include "pim/converte.h"

namespace {

using BYTES_DE_FOTO = std::vector<std::uint8_t>;

// A picture of random pixels, all of the range of its depth, in a matrix with a gap after its rows.
cv::Mat sorteada(int tipo, double ate) {
  cv::Mat img(31, 60, tipo);
  cv::RNG sorteio(7);
  sorteio.fill(img, cv::RNG::UNIFORM, 0, ate);
  return img(cv::Rect(3, 2, 45, 27));
}

vorplex::Picture retratada(const cv::Mat& img) {
  const auto profundidade = img.depth() == CV_8U    ? vorplex::Depth::bytes
                            : img.depth() == CV_16U ? vorplex::Depth::words
                                                    : vorplex::Depth::floats;
  return {img.data,
          {img.rows, img.cols},
          img.channels(),
          profundidade,
          static_cast<std::ptrdiff_t>(img.step[0])};
}

// Channel `canal` of pixel i as 8 bits, from doubles.
int oitoBits(const cv::Mat& img, int i, int canal) {
  const int l = i / img.cols;
  const int c = (i % img.cols) * img.channels() + canal;
  if (img.depth() == CV_8U) return img.ptr<std::uint8_t>(l)[c];
  const double x = img.depth() == CV_16U ? img.ptr<std::uint16_t>(l)[c] / 65535.0
                                         : static_cast<double>(img.ptr<float>(l)[c]);
  return pim::arredonda(std::min(x, 1.0) * 255);
}

// The same laid over white.
int sobreBranco(const cv::Mat& img, int i, int canal) {
  const int x = oitoBits(img, i, canal);
  if (img.channels() < 4) return x;
  const int alfa = oitoBits(img, i, 3);
  return pim::arredonda((x * alfa + 255 * (255 - alfa)) / 255.0);
}

int luz(const cv::Mat& img, int i) {
  const auto canal = [&](int k) { return sobreBranco(img, i, k); };
  if (img.channels() == 1) return canal(0);
  return pim::arredonda(0.299 * canal(0) + 0.587 * canal(1) + 0.114 * canal(2));
}

void exigeComoAFormula(const cv::Mat& img) {
  const BYTES_DE_FOTO cinza = vorplex::grey(retratada(img));
  const BYTES_DE_FOTO cores = vorplex::rgb(retratada(img));
  const int n = img.rows * img.cols;
  ASSERT_EQ(cinza.size(), static_cast<std::size_t>(n));
  ASSERT_EQ(cores.size(), static_cast<std::size_t>(3 * n));
  for (int i = 0; i < n; ++i) {
    ASSERT_NEAR(cinza[static_cast<std::size_t>(i)], luz(img, i), img.channels() > 1 ? 1 : 0) << i;
    for (int k = 0; k < 3; ++k) {
      ASSERT_EQ(cores[static_cast<std::size_t>(3 * i + k)],
                sobreBranco(img, i, img.channels() == 1 ? 0 : k))
          << i << ' ' << k;
    }
  }
}

}  // namespace

TEST(Picture, CadaTipoComoAFormula) {
  for (const int canais : {1, 3, 4}) {
    exigeComoAFormula(sorteada(CV_8UC(canais), 256));
    exigeComoAFormula(sorteada(CV_16UC(canais), 65536));
    exigeComoAFormula(sorteada(CV_32FC(canais), 1.2));
  }
}

TEST(Picture, VermelhoVemPrimeiro) {
  const std::vector<std::uint8_t> vermelho = {255, 0, 0};
  EXPECT_EQ(vorplex::grey({vermelho.data(), {1, 1}, 3}), BYTES_DE_FOTO{76});
  EXPECT_EQ(vorplex::rgb({vermelho.data(), {1, 1}, 3}), vermelho);
}

TEST(Picture, SemPixels) {
  EXPECT_TRUE(vorplex::grey({}).empty());
  EXPECT_TRUE(vorplex::rgb({nullptr, {0, 9}, 4, vorplex::Depth::floats}).empty());
}

TEST(Picture, RecusaOQueNaoEhFoto) {
  const std::vector<std::uint8_t> dados(64);
  const auto cinza = [&](const vorplex::Picture& p) { return erroDe([&] { vorplex::grey(p); }); };
  EXPECT_EQ(cinza({dados.data(), {2, 2}, 2}), "number of channels out of range");
  EXPECT_EQ(cinza({dados.data(), {-1, 2}, 3}), "image extent out of range");
  EXPECT_EQ(cinza({nullptr, {2, 2}, 3}), "image without pixels");
  EXPECT_EQ(cinza({dados.data(), {2, 2}, 3, vorplex::Depth::bytes, 5}),
            "image stride out of range");
  EXPECT_EQ(cinza({dados.data(), {2, 2}, 1, vorplex::Depth::words, 5}),
            "image stride out of range");
  EXPECT_EQ(cinza({dados.data(), {2, 3}, 1, vorplex::Depth::floats, 14}),
            "image stride out of range");
}
