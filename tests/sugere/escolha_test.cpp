#include "sugere/escolha.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using sugere::ESCOLHA;
using sugere::INDICIO;
using sugere::OLHADA;

sugere::VISTA inteira(std::size_t foto) {
  return {foto, cv::Mat_<unsigned char>(300, 400), 1, 0, 0, 300, 1};
}

INDICIO grao(char forma, double d1, double d2, double apoio = 0.9) {
  const bool reta = forma == 'q' || forma == 'r';
  return {
      {forma, 50, 50, d1, d2, 0}, std::sqrt(d1 * d2 * (reta ? 1.2732395447 : 1)), 0.2, apoio, 0.3};
}

std::vector<INDICIO> muitos(std::size_t n, const INDICIO& i) {
  return std::vector<INDICIO>(n, i);
}

bool procura(const ESCOLHA& e, char forma, double proporcao) {
  return std::any_of(e.linhas.begin(), e.linhas.end(), [&](const sugere::LINHA& l) {
    return l.forma == forma && l.proporcao == proporcao;
  });
}

}  // namespace

TEST(Escolha, PolaridadeDeMaisEvidencia) {
  std::vector<OLHADA> v = {
      {inteira(0), muitos(20, grao('c', 20, 20)), muitos(3, grao('c', 12, 12))}};
  ESCOLHA e = sugere::escolhe(v, 1);
  EXPECT_FALSE(e.inverte);
  EXPECT_NEAR(e.parte, 400.0 / 436, 1e-9);
  EXPECT_FALSE(sugere::temAmbas(e));
  std::swap(v[0].escuros, v[0].claros);
  e = sugere::escolhe(v, 1);
  EXPECT_TRUE(e.inverte);
  EXPECT_NEAR(e.fotos[0].quantos, 18, 1e-9);
}

TEST(Escolha, DizQuandoHaAmbasEQuemDestoa) {
  const std::vector<OLHADA> v = {{inteira(0), muitos(9, grao('c', 20, 20)), {}},
                                 {inteira(1), {}, muitos(7, grao('c', 20, 20))},
                                 {inteira(2), {}, {}}};
  const ESCOLHA e = sugere::escolhe(v, 3);
  EXPECT_TRUE(sugere::temAmbas(e));
  EXPECT_FALSE(sugere::destoa(e, e.fotos[0]));
  EXPECT_TRUE(sugere::destoa(e, e.fotos[1]));
  EXPECT_FALSE(sugere::destoa(e, e.fotos[2]));
}

TEST(Escolha, FamiliasEProporcoesQueContam) {
  std::vector<INDICIO> graos = muitos(60, grao('e', 22, 20));  // nearly round
  for (const INDICIO& i : muitos(38, grao('r', 50, 20))) graos.push_back(i);
  graos.push_back(grao('e', 40, 25));  // a hundredth
  const ESCOLHA e = sugere::escolhe({{inteira(0), graos, {}}}, 1);
  EXPECT_TRUE(procura(e, 'c', 1));
  EXPECT_TRUE(procura(e, 'r', 2.5));
  EXPECT_EQ(e.linhas.size(), 2U);
  ASSERT_EQ(e.familias.size(), 3U);
  EXPECT_EQ(e.familias[0].forma, 'c');
  EXPECT_NEAR(e.familias[0].parte, 60.0 / 99, 1e-9);
}

TEST(Escolha, PoucosGraosDeMuitaAreaContam) {
  std::vector<INDICIO> graos = muitos(200, grao('c', 10, 10));
  graos.push_back(grao('r', 80, 20));
  const ESCOLHA e = sugere::escolhe({{inteira(0), graos, {}}}, 1);
  EXPECT_TRUE(procura(e, 'r', 2.5));
  EXPECT_EQ(e.linhas.size(), 2U);
}

TEST(Escolha, TamanhosVistosEFolga) {
  std::vector<INDICIO> graos = muitos(50, grao('c', 20, 20));
  graos.push_back(grao('c', 60, 60));
  graos.push_back(grao('c', 90, 90, 0.4));  // hardly a grain
  const ESCOLHA e = sugere::escolhe({{inteira(0), graos, {}}}, 1);
  EXPECT_EQ(e.menor, 20);
  EXPECT_EQ(e.maior, 60);
  EXPECT_LT(e.linhas[0].menor, 15);
  EXPECT_GT(e.linhas[0].maior, 80);
}

TEST(Escolha, ParteDaFotografiaValePorToda) {
  sugere::VISTA parte = inteira(0);
  parte.parte = 0.25;
  const std::vector<OLHADA> v = {{parte, muitos(5, grao('c', 20, 20)), {}}};
  EXPECT_NEAR(sugere::escolhe(v, 1).fotos[0].quantos, 18, 1e-9);
}

TEST(Escolha, SemGraosOsAjustesGerais) {
  const ESCOLHA e = sugere::escolhe({{inteira(0), {}, {}}}, 1);
  EXPECT_TRUE(e.geral);
  EXPECT_FALSE(e.inverte);
  EXPECT_EQ(e.linhas.size(), 6U);
  EXPECT_FALSE(sugere::temAmbas(e));
  EXPECT_TRUE(sugere::escolhe({}, 0).geral);
}
