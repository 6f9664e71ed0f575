#include "examples/classes.h"

#include <gtest/gtest.h>

#include "apoio/pasta.h"
#include "pim/imagem.h"

TEST(Classes, SaoLidasComoImagemDeUmaLinha) {
  const PASTA pasta;
  gravaClasses({2, 0, 255, 1}, "a.mat");
  cv::Mat_<unsigned char> lidas;
  pim::le(lidas, "a.mat");
  ASSERT_EQ(lidas.size(), cv::Size(4, 1));
  EXPECT_EQ(std::vector<unsigned char>(lidas.begin(), lidas.end()),
            (std::vector<unsigned char>{2, 0, 255, 1}));
}
