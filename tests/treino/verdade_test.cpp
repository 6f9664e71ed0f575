#include "treino/verdade.h"

#include <gtest/gtest.h>

#include <opencv2/imgcodecs.hpp>

#include "apoio/erros.h"
#include "apoio/pasta.h"

using treino::acerto;
using treino::leVerdade;

namespace {

const std::string cabecalho = "letter,row,col,d1,d2,ang,edge\n";

// A label image with rectangles of 20 rows by 30 columns at the left, and 10 x 10 at the right.
void gravaRotulos(int outro = 2) {
  cv::Mat_<std::uint16_t> m(60, 90, std::uint16_t{0});
  m(cv::Rect(10, 20, 30, 20)) = 1;
  m(cv::Rect(60, 20, 10, 10)) = static_cast<std::uint16_t>(outro);
  cv::imwrite("r.png", m);
}

const std::string doisRetangulos = cabecalho + "r,29.5,24.5,30,20,0,0\nq,24.5,64.5,10,10,0,1\n";

}  // namespace

TEST(Verdade, AngulosGiramComoNaLista) {
  const PASTA pasta;
  grava("v.csv", "d2,d1,ang,col,row,letter\r\n10,40,30,50,20,e\r\n7,12,0,3,4,c\r\n");
  const treino::VERDADE v = leVerdade("v.csv", "");
  ASSERT_EQ(v.graos.size(), 2U);
  EXPECT_EQ(v.graos[0].ang, -30);
  EXPECT_EQ(v.graos[0].l, 20);
  EXPECT_EQ(v.graos[1].d2, 12);
  EXPECT_GT(acerto(v, {'e', 20, 50, 40, 10, 150}).iou, 0.99);
  EXPECT_LT(acerto(v, {'e', 20, 50, 40, 10, 30}).iou, 0.3);
}

TEST(Verdade, AcertoEhOGraoMaisParecido) {
  const PASTA pasta;
  grava("v.csv", cabecalho + "q,30,30,20,20,0,0\nq,30,44,20,20,0,0\n");
  const treino::VERDADE v = leVerdade("v.csv", "");
  const treino::ACERTO a = acerto(v, {'q', 30, 40, 20, 20, 0});
  EXPECT_EQ(a.grao, 1);
  EXPECT_NEAR(a.iou, 16.0 / 24, 0.03);
  EXPECT_EQ(acerto(v, {'q', 80, 80, 20, 20, 0}).grao, -1);
}

TEST(Verdade, RotulosContamPixelAPixel) {
  const PASTA pasta;
  grava("v.csv", doisRetangulos);
  gravaRotulos();
  const treino::VERDADE v = leVerdade("v.csv", "r.png");
  EXPECT_EQ(acerto(v, {'r', 29.5, 24.5, 30, 20, 0}).iou, 1);
  const treino::ACERTO meio = acerto(v, {'r', 29.5, 39.5, 30, 20, 0});
  EXPECT_EQ(meio.grao, 0);
  EXPECT_NEAR(meio.iou, 300.0 / 900, 1e-9);
  EXPECT_EQ(acerto(v, {'q', 24.5, 64.5, 10, 10, 0}).grao, 1);
  EXPECT_EQ(acerto(v, {'q', 500, 500, 10, 10, 0}).grao, -1);
}

TEST(Verdade, ArquivosRuinsSaoRecusadosPeloNome) {
  const PASTA pasta;
  grava("falta.csv", "letter,row,col,d1,d2\nc,1,2,3,3\n");
  grava("letra.csv", cabecalho + "x,1,2,3,3,0,0\n");
  grava("curta.csv", cabecalho + "c,1,2\n");
  grava("nan.csv", cabecalho + "c,nan,2,3,3,0,0\n");
  for (const std::string nome : {"falta.csv", "letra.csv", "curta.csv", "nan.csv", "nao-ha.csv"}) {
    EXPECT_NE(erroDe([&] { leVerdade(nome, ""); }).find(nome), std::string::npos) << nome;
  }
  grava("v.csv", doisRetangulos);
  gravaRotulos(3);
  EXPECT_EQ(erroDe([] { leVerdade("v.csv", "r.png"); }), "Erro: Rotulo sem grao em r.png");
  EXPECT_EQ(erroDe([] { leVerdade("v.csv", "nao-ha.png"); }), "Erro: Rotulos invalidos nao-ha.png");
}
