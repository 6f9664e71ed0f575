#include "sugere/sugere.h"

#include <gtest/gtest.h>

#include "apoio/detector.h"
#include "sugere/texto.h"

TEST(SugereEmFios, OMesmoTextoComQualquerNumeroDeFios) {
  cv::Mat_<unsigned char> grande;
  cv::repeat(fotoDeGraos(), 2, 2, grande);
  const auto texto = [&](int fios) {
    const auto le = [&](std::size_t i) { return i == 0 ? grande : fotoDeGraos(); };
    const sugere::SUGESTAO s = sugere::sugere(2, le, {std::nullopt, {}, fios});
    return sugere::emKernelCfg(s.escolha, sugere::LINGUA::pt);
  };
  const std::string um = texto(1);
  EXPECT_EQ(um.find("Nenhum"), std::string::npos);
  EXPECT_EQ(texto(2), um);
  EXPECT_EQ(texto(5), um);
}
