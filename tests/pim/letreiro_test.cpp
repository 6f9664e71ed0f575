#include "pim/letreiro.h"

#include <opencv2/imgproc.hpp>

#include "fabrica.h"

using COR = cv::Mat_<pim::VEC3B>;

namespace {

const pim::VEC3B vermelho(0, 0, 255);
const pim::VEC3B branco(255, 255, 255);
const pim::VEC3B preto(0, 0, 0);

// The smallest rectangle that holds all pixels of colour `cor`.
cv::Rect onde(const COR& img, const pim::VEC3B& cor) {
  cv::Mat mascara;
  cv::inRange(img, cv::Scalar(cor), cv::Scalar(cor), mascara);
  return cv::boundingRect(mascara);
}

cv::Rect caixa(const COR& img) {
  cv::Mat mascara;
  cv::inRange(img, cv::Scalar(preto), cv::Scalar(preto), mascara);
  return cv::boundingRect(255 - mascara);
}

COR escrita(const std::string& texto, int l, int c, int tamanho, bool centrado) {
  COR img(60, 120, preto);
  pim::putTxt(img, l, c, texto, vermelho, tamanho, centrado, branco);
  return img;
}

}  // namespace

TEST(PutTxt, SoApareceACorDoTextoEADoFundo) {
  for (const pim::VEC3B& p : escrita("0123456789", 30, 60, 1, true)) {
    EXPECT_TRUE(p == preto || p == vermelho || p == branco);
  }
}

TEST(PutTxt, DigitosTemCercaDeSetePixelsDeAltura) {
  EXPECT_NEAR(onde(escrita("8", 30, 60, 1, true), vermelho).height, 7, 1);
  EXPECT_NEAR(onde(escrita("8", 30, 60, 2, true), vermelho).height, 14, 3);
}

TEST(PutTxt, CentradoFicaNoCentroDadoMesmoParaTextosDiferentes) {
  for (const char* texto : {"0", "7", "42", "1234"}) {
    const COR img = escrita(texto, 31, 64, 1, true);
    const cv::Rect fundo = caixa(img);
    EXPECT_NEAR(fundo.y + fundo.height / 2.0, 31.5, 0.51) << texto;
    EXPECT_NEAR(fundo.x + fundo.width / 2.0, 64.5, 0.51) << texto;
    const cv::Rect letras = onde(img, vermelho);
    EXPECT_NEAR(letras.y + letras.height / 2.0, 31.5, 1.5) << texto;
    EXPECT_NEAR(letras.x + letras.width / 2.0, 64.5, 2.5) << texto;
  }
}

TEST(PutTxt, LetrasFicamDentroDaCaixaComUmPixelDeMargem) {
  for (const auto& [texto, tamanho] :
       {std::pair{"0", 1}, {"13", 1}, {"888", 1}, {"1234", 1}, {"AZ", 1}, {"90", 2}, {"7", 3}}) {
    const COR img = escrita(texto, 30, 60, tamanho, true);
    const cv::Rect fundo = caixa(img);
    const cv::Rect letras = onde(img, vermelho);
    EXPECT_GE(letras.x, fundo.x + 1) << texto;
    EXPECT_GE(letras.y, fundo.y + 1) << texto;
    EXPECT_LE(letras.br().x, fundo.br().x - 1) << texto;
    EXPECT_LE(letras.br().y, fundo.br().y - 1) << texto;
  }
}

TEST(PutTxt, SemCentrarOCantoFicaNaPosicao) {
  const cv::Rect fundo = caixa(escrita("12", 5, 9, 1, false));
  EXPECT_EQ(fundo.tl(), cv::Point(9, 5));
}

TEST(PutTxt, EhCortadoNaBordaSemEstragarOResto) {
  const COR inteiro = escrita("88", 30, 60, 1, true);
  for (const auto& [l, c] : {std::pair{0, 0}, {59, 119}, {0, 60}, {30, 119}}) {
    const COR img = escrita("88", l, c, 1, true);
    for (int y = 0; y < img.rows; ++y) {
      for (int x = 0; x < img.cols; ++x) {
        const int oy = y - l + 30;
        const int ox = x - c + 60;
        const bool ha = oy >= 0 && oy < img.rows && ox >= 0 && ox < img.cols;
        ASSERT_EQ(img(y, x), ha ? inteiro(oy, ox) : preto) << l << " " << c;
      }
    }
  }
}

TEST(PutTxt, LongeDaImagemNaoDesenhaNada) {
  for (const int longe : {-1000, 1000, 2147483647, -2147483647 - 1}) {
    EXPECT_TRUE(caixa(escrita("8", longe, 60, 1, true)).empty());
    EXPECT_TRUE(caixa(escrita("8", 30, longe, 1, false)).empty());
  }
}
