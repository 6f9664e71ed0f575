#include "page/figura.h"

#include <gtest/gtest.h>

#include <opencv2/imgproc.hpp>
#include <random>

#include "apoio/erros.h"
#include "apoio/figuras.h"
#include "apoio/pasta.h"
#include "pim/arquivo.h"
#include "pim/imagem.h"

using namespace page;

namespace {

using IMAGEM = cv::Mat_<pim::VEC3B>;

// What a reader of JPEG files sees.
IMAGEM relida(const std::vector<unsigned char>& jpeg) {
  const PASTA pasta;
  pim::gravaBytes("f.jpg", jpeg);
  IMAGEM img;
  pim::le(img, "f.jpg");
  return img;
}

TEST(Reduz, CadaPixelEhAMediaDosQueCobre) {
  IMAGEM img(4, 6);
  for (int l = 0; l < 4; ++l) {
    for (int c = 0; c < 6; ++c) {
      const int azul = 10 * (l / 2 * 3 + c / 2) + ((l + c) % 2 == 0 ? 4 : -4);
      img(l, c) = pim::VEC3B(static_cast<unsigned char>(azul + 20), 200, 7);
    }
  }
  const IMAGEM menor = reduz(img, 3);
  ASSERT_EQ(menor.size(), cv::Size(3, 2));
  for (int l = 0; l < 2; ++l) {
    for (int c = 0; c < 3; ++c) {
      const auto azul = static_cast<unsigned char>(20 + 10 * (l * 3 + c));
      EXPECT_EQ(menor(l, c), pim::VEC3B(azul, 200, 7));
    }
  }
}

TEST(Reduz, OMaiorLadoChegaAoPedidoEAProporcaoFica) {
  EXPECT_EQ(reduz(IMAGEM(3000, 4000), 1600).size(), cv::Size(1600, 1200));
  EXPECT_EQ(reduz(IMAGEM(4000, 3000), 1600).size(), cv::Size(1200, 1600));
  EXPECT_EQ(reduz(IMAGEM(3201, 1601), 1600).size(), cv::Size(800, 1600));
}

TEST(Reduz, PequenasFicamComoSao) {
  std::mt19937 sorteio(1);
  const IMAGEM img = fotoSorteada(sorteio, 12, 16);
  EXPECT_TRUE(iguais(reduz(img, 16), img));
  EXPECT_TRUE(iguais(reduz(img, 1600), img));
}

TEST(Reduz, FaixaFinaNaoPerdeOLadoMenor) {
  EXPECT_EQ(reduz(IMAGEM(1, 5000), 160).size(), cv::Size(160, 1));
}

TEST(Jpeg, CoresNaOrdemCerta) {
  IMAGEM img(64, 64, pim::VEC3B(220, 120, 20));
  img.colRange(0, 32).setTo(cv::Scalar(10, 60, 200));
  const IMAGEM lida = relida(emJpeg(img, 80));
  ASSERT_EQ(lida.size(), img.size());
  for (const int c : {10, 50}) {
    for (int k = 0; k < 3; ++k) EXPECT_NEAR(lida(30, c)[k], img(30, c)[k], 4) << c << ' ' << k;
  }
}

TEST(Jpeg, RecorteDeOutraImagemTemSoOsSeusPixels) {
  IMAGEM inteira(64, 200, pim::VEC3B(0, 0, 0));
  inteira.colRange(64, 128).setTo(cv::Scalar(90, 90, 90));
  const IMAGEM lida = relida(emJpeg(inteira.colRange(64, 128), 80));
  ASSERT_EQ(lida.size(), cv::Size(64, 64));
  EXPECT_NEAR(cv::mean(lida)[0], 90, 2);
}

TEST(Jpeg, ImagemVaziaEhErro) {
  EXPECT_EQ(erroDe([&] { emJpeg(IMAGEM(), 80); }), "Erro: Imagem vazia");
}

TEST(JpegAte, ImagemCalmaFicaCom1600Pixels) {
  const std::vector<unsigned char> jpeg =
      emJpegAte(IMAGEM(1500, 2000, pim::VEC3B(9, 9, 9)), 500000);
  EXPECT_LE(jpeg.size(), 500000U);
  EXPECT_EQ(relida(jpeg).size(), cv::Size(1600, 1200));
}

TEST(JpegAte, RuidoPerdeQualidadeEDepoisTamanhoAteCaber) {
  std::mt19937 sorteio(2);
  const IMAGEM ruido = fotoSorteada(sorteio, 480, 640);
  const std::size_t boa = emJpeg(ruido, 80).size();
  const std::vector<unsigned char> apertada = emJpegAte(ruido, boa - 1);
  EXPECT_LT(apertada.size(), boa);
  EXPECT_EQ(relida(apertada).size(), ruido.size());
  const std::vector<unsigned char> pequena = emJpegAte(ruido, boa / 8);
  EXPECT_LE(pequena.size(), boa / 8);
  EXPECT_LT(relida(pequena).cols, 640);
}

TEST(JpegAte, LimiteImpossivelParaEm200Pixels) {
  std::mt19937 sorteio(3);
  const IMAGEM lida = relida(emJpegAte(fotoSorteada(sorteio, 300, 400), 10));
  EXPECT_LE(lida.cols, 267);
  EXPECT_GE(lida.cols, 200);
}

TEST(Figura, FicaEmDoisArquivosEEhLidaDeVolta) {
  const PASTA pasta;
  std::mt19937 sorteio(4);
  const IMAGEM foto = fotoSorteada(sorteio, 240, 320);
  pim::imp(foto, "foto.png");
  impFigura("foto.png", 1000000, "f");
  const FIGURA lida = leFigura("f");
  EXPECT_EQ(relida(lida.jpeg).size(), cv::Size(320, 240));
  EXPECT_EQ(relida(lida.miniatura).size(), cv::Size(160, 120));
  EXPECT_EQ(lida.jpeg, emJpegAte(foto, 1000000));
  EXPECT_EQ(erroDe([&] { impFigura("nenhuma.png", 1000, "g"); }),
            "Erro abertura arquivo nenhuma.png");
}

TEST(Figura, VaziaTemAProporcaoDaFotografia) {
  const FIGURA deitada = figuraVazia({4000, 3000});
  EXPECT_EQ(relida(deitada.jpeg).size(), cv::Size(1600, 1200));
  EXPECT_EQ(relida(deitada.miniatura).size(), cv::Size(160, 120));
  EXPECT_EQ(relida(figuraVazia({1, 30000}).miniatura).size(), cv::Size(1, 160));
  EXPECT_EQ(relida(figuraVazia({30, 40}).jpeg).size(), cv::Size(30, 40));
}

TEST(Limite, FotografiasDeUmaPaginaCabemEm40MB) {
  constexpr std::size_t fotos = 50;
  EXPECT_LT(limiteDaFigura(fotos) * fotos * 4 / 3, 36'000'000U);
  EXPECT_GT(limiteDaFigura(0), 0U);
  EXPECT_GT(limiteDaFigura(1000000), 10000U);
}

TEST(Base64, VetoresDaRfc4648) {
  const auto de = [](const std::string& s) {
    return emBase64(std::vector<unsigned char>(s.begin(), s.end()));
  };
  EXPECT_EQ(de(""), "");
  EXPECT_EQ(de("f"), "Zg==");
  EXPECT_EQ(de("fo"), "Zm8=");
  EXPECT_EQ(de("foo"), "Zm9v");
  EXPECT_EQ(de("foobar"), "Zm9vYmFy");
  EXPECT_EQ(de("\xFF\xFB\xBF"), "//u/");
}

}  // namespace
