#include "pim/codecs.h"

#include "fabrica.h"

TEST(Codecs, ModuloEhAbertoUmaVezEFazAIdaEAVolta) {
  const pim::CODECS& c = pim::codecs();
  EXPECT_EQ(&c, &pim::codecs());
  BYTES png;
  const cv::Mat cena = cenaCinza(5, 6);
  ASSERT_TRUE(c.codifica("png", cena, png));
  EXPECT_EQ(maiorDiferenca(c.decodifica(png).imagem, cena), 0);
  EXPECT_FALSE(c.codifica("xyz", cena, png));
  EXPECT_NE(c.leMat("nada.mat").erro, "");
}
