#include <gtest/gtest.h>

#include "measure/resumo.h"

// Against numbers that numpy computed once, in other ways (dados/gera.py).

namespace {

struct REFERENCIA_GRAO {
  char forma;
  double d1;
  double d2;
  double area;
  double equivalente;
  double perimetro;
};

struct REFERENCIA_DISTRIBUICAO {
  GRANDEZA grandeza;
  PESO peso;
  std::vector<double> numeros;  // D5 to D95, mean, deviation, four phi measures, Cu, Cc
  std::vector<double> classes;
};

// clang-format off
#include "dados/referencia.inc"

using namespace measure;
// clang-format on

constexpr double tolerancia = 1e-12;

FOTOGRAFIA fotoDeReferencia() {
  std::vector<MAXLOCAL> v;
  for (const REFERENCIA_GRAO& g : referenciaGraos) {
    v.push_back({0.5F, g.forma, 50, 50, g.d1, g.d2, 0});
  }
  return {"ref", 100, 100, {referenciaLado, UNIDADE::mm}, medeTodos(v, 100, 100)};
}

TEST(Referencia, AreasDiametrosEPerimetrosSaoOsDoNumpy) {
  const FOTOGRAFIA foto = fotoDeReferencia();
  ASSERT_EQ(foto.graos.size(), 64U);
  for (std::size_t i = 0; i < foto.graos.size(); ++i) {
    const REFERENCIA_GRAO& r = referenciaGraos[i];
    EXPECT_NEAR(foto.graos[i].area, r.area, tolerancia * r.area) << i;
    EXPECT_NEAR(foto.graos[i].equivalente, r.equivalente, tolerancia * r.equivalente) << i;
    EXPECT_NEAR(foto.graos[i].perimetro, r.perimetro, tolerancia * r.perimetro) << i;
  }
}

TEST(Referencia, DistribuicoesDeTodasAsGrandezasEPesosSaoAsDoNumpy) {
  const FOTOGRAFIA foto = fotoDeReferencia();
  ASSERT_EQ(referencias.size(), 9U);
  for (const REFERENCIA_DISTRIBUICAO& r : referencias) {
    const RESUMO resumo = resume(foto, r.grandeza, r.peso, referenciaAberturas);
    const DISTRIBUICAO& d = resumo.distribuicao;
    std::vector<std::optional<double>> numeros(d.d.begin(), d.d.end());
    numeros.insert(numeros.end(), {d.media, d.desvio, d.mediaPhi, d.selecao, d.assimetria,
                                   d.curtose, d.uniformidade, d.curvatura});
    ASSERT_EQ(numeros.size(), r.numeros.size());
    for (std::size_t i = 0; i < numeros.size(); ++i) {
      ASSERT_TRUE(numeros[i].has_value()) << i;
      EXPECT_NEAR(*numeros[i], r.numeros[i], tolerancia * std::max(1.0, std::abs(r.numeros[i])))
          << "grandeza " << static_cast<int>(r.grandeza) << " peso " << static_cast<int>(r.peso)
          << " numero " << i;
    }
    ASSERT_EQ(resumo.peneiras.size(), r.classes.size());
    for (std::size_t k = 0; k < r.classes.size(); ++k) {
      EXPECT_NEAR(resumo.peneiras[k].retida.value(), r.classes[k], tolerancia) << k;
    }
  }
}

}  // namespace
