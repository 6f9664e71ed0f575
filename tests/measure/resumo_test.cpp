#include "measure/resumo.h"

#include <gtest/gtest.h>

#include "apoio/erros.h"

using namespace measure;

namespace {

FOTOGRAFIA foto(const std::string& nome, int rows, int cols, ESCALA escala,
                const std::vector<MAXLOCAL>& v) {
  return {nome, rows, cols, escala, medeTodos(v, rows, cols)};
}

MAXLOCAL grao(char letra, double d, int li = 50) {
  return {0.5F, letra, li, 50, d, d, 0};
}

const ESCALA meioMilimetro{0.5, UNIDADE::mm};

TEST(Resume, ContagensAreaEDensidadeNaUnidade) {
  const FOTOGRAFIA f = foto("a", 100, 200, meioMilimetro,
                            {grao('c', 10), grao('e', 10), grao('c', 10, 2), grao('q', 10)});
  const RESUMO r = resume(f, GRANDEZA::equivalente, PESO::numero);
  EXPECT_EQ(r.fotos, 1U);
  EXPECT_EQ(r.graos, 4U);
  EXPECT_EQ(r.porForma, (std::array<std::size_t, 4>{2, 1, 0, 1}));
  EXPECT_EQ(r.naBorda, 1U);
  EXPECT_EQ(r.area, 5000);
  EXPECT_EQ(r.densidade, 4.0 / 5000);
  EXPECT_EQ(r.unidade, UNIDADE::mm);
  EXPECT_EQ(valorD(r.distribuicao, 5), 5);
  EXPECT_TRUE(r.peneiras.empty());
}

TEST(Resume, SemEscalaEmPixels) {
  const RESUMO r = resume(foto("a", 10, 20, {}, {grao('c', 7)}), GRANDEZA::menor, PESO::volume);
  EXPECT_EQ(r.unidade, UNIDADE::px);
  EXPECT_EQ(r.area, 200);
  EXPECT_EQ(r.densidade, 1.0 / 200);
  EXPECT_EQ(valorD(r.distribuicao, 50), 7);
}

TEST(Resume, FotoSemGraosTemDensidadeZeroENenhumTamanho) {
  const RESUMO r = resume(foto("a", 10, 20, {}, {}), GRANDEZA::menor, PESO::area, {5});
  EXPECT_EQ(r.graos, 0U);
  EXPECT_EQ(r.densidade, 0);
  EXPECT_FALSE(r.distribuicao.media.has_value());
  ASSERT_EQ(r.peneiras.size(), 2U);
  EXPECT_FALSE(r.peneiras[0].retida.has_value());
}

TEST(Resume, NenhumaFotoNaoTemDensidade) {
  const RESUMO r = resume(ACUMULADO{});
  EXPECT_EQ(r.fotos, 0U);
  EXPECT_FALSE(r.densidade.has_value());
}

TEST(Acumula, VariasFotosCadaUmaComASuaEscala) {
  ACUMULADO a;
  acumula(a, foto("a", 100, 100, meioMilimetro, {grao('c', 10), grao('c', 20)}));
  acumula(a, foto("b", 100, 100, {0.25, UNIDADE::mm}, {grao('q', 40)}));
  const RESUMO r = resume(a, {6});
  EXPECT_EQ(r.fotos, 2U);
  EXPECT_EQ(r.graos, 3U);
  EXPECT_EQ(r.area, 2500 + 625);
  EXPECT_EQ(r.densidade, 3.0 / 3125);
  EXPECT_EQ(valorD(r.distribuicao, 5), 5);
  EXPECT_EQ(valorD(r.distribuicao, 50), 10);
  EXPECT_NEAR(*valorD(r.distribuicao, 95), 11.283791670955126, 1e-12);
  EXPECT_EQ(r.peneiras[0].graos, 1U);
  EXPECT_EQ(r.peneiras[1].graos, 2U);
}

TEST(Acumula, AOrdemDasFotosNaoMudaADistribuicao) {
  const FOTOGRAFIA f = foto("a", 90, 90, meioMilimetro, {grao('c', 11.3), grao('e', 7.1)});
  const FOTOGRAFIA g = foto("b", 90, 90, meioMilimetro, {grao('q', 9.7), grao('r', 8.9)});
  ACUMULADO ida;
  ida.grandeza = GRANDEZA::menor;
  ida.peso = PESO::volume;
  acumula(ida, f);
  acumula(ida, g);
  ACUMULADO volta;
  volta.grandeza = GRANDEZA::menor;
  volta.peso = PESO::volume;
  acumula(volta, g);
  acumula(volta, f);
  const DISTRIBUICAO x = resume(ida).distribuicao;
  const DISTRIBUICAO y = resume(volta).distribuicao;
  EXPECT_EQ(x.d, y.d);
  EXPECT_EQ(x.media, y.media);
  EXPECT_EQ(x.desvio, y.desvio);
}

TEST(Acumula, UnidadesDiferentesSaoErro) {
  ACUMULADO a;
  acumula(a, foto("a", 9, 9, meioMilimetro, {}));
  EXPECT_EQ(erroDe([&] { acumula(a, foto("b", 9, 9, {}, {})); }),
            "Erro: Fotografias com unidades diferentes: b em px, antes mm");
}

}  // namespace
