#include "linha/nomes.h"

#include <gtest/gtest.h>

using namespace linha;

namespace {

using TEXTOS = std::vector<std::string>;

TEST(SepararNomes, UmPorLinhaSemOsVazios) {
  EXPECT_EQ(separaNomes(""), TEXTOS{});
  EXPECT_EQ(separaNomes("\n\n"), TEXTOS{});
  EXPECT_EQ(separaNomes("a.jpg\nb c.jpg"), (TEXTOS{"a.jpg", "b c.jpg"}));
  EXPECT_EQ(separaNomes("a.jpg\r\n\n b.jpg\n"), (TEXTOS{"a.jpg", " b.jpg"}));
}

TEST(SepararNomes, ComNulosAsLinhasSaoDosNomes) {
  EXPECT_EQ(separaNomes(std::string("a\nb\0c\r\0\0d", 9)), (TEXTOS{"a\nb", "c\r", "d"}));
}

TEST(ComNomes, OTracoDaLugarAosNomes) {
  std::FILE* f = std::tmpfile();
  ASSERT_NE(f, nullptr);
  std::fputs("x\ny\n", f);
  std::rewind(f);
  EXPECT_EQ(comNomesDe(f, {"a", "-", "b", "-"}), (TEXTOS{"a", "x", "y", "b"}));
  std::fclose(f);
}

}  // namespace
