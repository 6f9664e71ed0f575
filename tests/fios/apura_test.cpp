#include "refine/apura.h"

#include <gtest/gtest.h>

#include <cmath>

#include "apoio/detector.h"

namespace {

// Detections of every letter and size all over the picture.
std::vector<MAXLOCAL> muitasDeteccoes() {
  std::vector<MAXLOCAL> v;
  for (int l = 3; l < 90; l += 7) {
    for (int c = 3; c < 120; c += 7) {
      const double d = 9 + (l * 5 + c * 3) % 17;
      v.push_back({0.2F, "cqre"[v.size() % 4], l, c, d, d * 0.7, l * 11.0 + c});
    }
  }
  return v;
}

bool osMesmos(const refine::APURACAO& a, const refine::APURACAO& b) {
  if (a.graos.size() != b.graos.size() || a.recusados != b.recusados) return false;
  for (std::size_t k = 0; k < a.graos.size(); ++k) {
    const refine::APURADO &x = a.graos[k], &y = b.graos[k];
    const bool figura = x.figura.forma == y.figura.forma && x.figura.l == y.figura.l &&
                        x.figura.c == y.figura.c && x.figura.d1 == y.figura.d1 &&
                        x.figura.d2 == y.figura.d2 && x.figura.ang == y.figura.ang;
    const bool resto = x.correl == y.correl && x.apoio == y.apoio && x.contraste == y.contraste &&
                       x.erro == y.erro;
    if (!figura || !resto) return false;
  }
  return true;
}

}  // namespace

TEST(ApuraEmFios, DaOMesmoComQualquerNumeroDeFios) {
  const cv::Mat_<unsigned char> foto = fotoDeGraos();
  const std::vector<MAXLOCAL> lista = muitasDeteccoes();
  refine::MODO_DE_APURAR modo;
  modo.sensibilidade = 1;
  const refine::APURACAO um = refine::apura(foto, lista, modo);
  EXPECT_GE(um.graos.size(), 3U);
  for (const int fios : {2, 5}) {
    modo.fios = fios;
    EXPECT_TRUE(osMesmos(um, refine::apura(foto, lista, modo))) << fios;
  }
}
