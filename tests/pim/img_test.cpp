#include "pim/img.h"

#include "apoio/erros.h"
#include "fabrica.h"

TEST(Img, MatrizSemDadosEhRecusada) {
  EXPECT_EQ(erroDe([&] { IMG_<float>(cv::Mat_<float>()); }), "Erro: IMG_::constructor _mat nulo");
  EXPECT_EQ(erroDe([&] { IMG_<unsigned char>(cv::Mat_<unsigned char>()); }),
            "Erro: IMG_::constructor _mat nulo");
}

TEST(Img, CompartilhaOsPixels) {
  cv::Mat_<float> m(2, 3, 1.0F);
  const IMG_<float> img(m);
  m(1, 2) = 5;
  EXPECT_EQ(img.atb(1, 2), 5);
}

TEST(Img, AtbForaDaImagemDaOFundo) {
  const cv::Mat_<unsigned char> m(2, 3, 9);
  const IMG_<unsigned char> img(m, 4);
  EXPECT_EQ(img.atb(0, 0), 9);
  EXPECT_EQ(img.atb(1, 2), 9);
  EXPECT_EQ(img.atb(-1, 0), 4);
  EXPECT_EQ(img.atb(2, 0), 4);
  EXPECT_EQ(img.atb(0, -1), 4);
  EXPECT_EQ(img.atb(0, 3), 4);
  EXPECT_EQ(IMG_<unsigned char>(m).atb(0, 3), 0);
}
