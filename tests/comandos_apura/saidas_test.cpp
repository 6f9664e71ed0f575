#include <cmath>
#include <sstream>

#include "apoio/executa.h"
#include "cenario.h"
#include "pim/imagem.h"

namespace {

using TEXTOS = std::vector<std::string>;

TEXTOS campos(const std::string& linha) {
  std::istringstream partes(linha);
  TEXTOS v;
  for (std::string campo; std::getline(partes, campo, ',');) v.push_back(campo);
  return v;
}

std::vector<TEXTOS> tabela(const std::string& csv) {
  std::istringstream texto(csv);
  std::vector<TEXTOS> v;
  for (std::string linha; std::getline(texto, linha);) v.push_back(campos(linha));
  return v;
}

cv::Mat_<pim::VEC3B> imagem(const std::string& nome) {
  cv::Mat_<pim::VEC3B> img;
  pim::le(img, nome);
  return img;
}

// How many pixels of the two differ.
int diferentes(const cv::Mat_<pim::VEC3B>& a, const cv::Mat_<pim::VEC3B>& b) {
  int n = 0;
  for (int l = 0; l < a.rows; ++l) {
    for (int c = 0; c < a.cols; ++c) n += a(l, c) != b(l, c) ? 1 : 0;
  }
  return n;
}

TEST_F(Apura, ATabelaTemOsGraosEmFracoesDePixel) {
  const std::vector<TEXTOS> t = tabela(feito({}));
  ASSERT_EQ(t.size(), 4U);
  // Letter, row, column and size of what is in the photograph.
  const struct {
    const char* letra;
    double l, c, d;
  } deVerdade[] = {{"c", 30, 35, 20.4}, {"c", 70, 25, 14.4}, {"q", 45, 85, 19}};
  for (const auto& g : deVerdade) {
    int achados = 0;
    for (std::size_t i = 1; i < t.size(); ++i) {
      if (std::abs(std::stod(t[i][3]) - g.l) > 3 || std::abs(std::stod(t[i][4]) - g.c) > 3)
        continue;
      ++achados;
      EXPECT_EQ(t[i][1], g.letra);
      EXPECT_NEAR(std::stod(t[i][3]), g.l, 0.2);
      EXPECT_NEAR(std::stod(t[i][4]), g.c, 0.2);
      EXPECT_NEAR(std::stod(t[i][5]), g.d, 0.4);
      EXPECT_EQ(t[i][5], t[i][6]);
      EXPECT_GT(std::stod(t[i][16]), 0.35);  // support
      EXPECT_LE(std::stod(t[i][16]), 1);
      EXPECT_GT(std::stod(t[i][17]), 0.3);  // contrast: 60 on 200 of 255
      for (std::size_t k = 18; k < 22; ++k) {
        EXPECT_GT(std::stod(t[i][k]), 0) << k;
        EXPECT_LT(std::stod(t[i][k]), 1) << k;
      }
    }
    EXPECT_EQ(achados, 1) << g.letra << g.l;
  }
}

TEST_F(Apura, AsColunasComecamComoAsDaTabelaDeGraos) {
  const std::string csv = feito({});
  EXPECT_EQ(csv.substr(0, csv.find('\n')),
            "indice,letra,forma,linha_px,coluna_px,d1_px,d2_px,angulo_graus,correlacao,area_px2,"
            "diametro_equivalente_px,perimetro_px,diametro_menor_px,diametro_maior_px,alongamento,"
            "toca_borda,apoio,contraste,erro_linha_px,erro_coluna_px,erro_d1_px,erro_d2_px,"
            "erro_angulo_graus");
  const std::string ingles = feito({"--idioma", "en"});
  EXPECT_EQ(ingles.substr(0, ingles.find('\n')),
            "index,letter,shape,row_px,column_px,d1_px,d2_px,angle_deg,correlation,area_px2,"
            "equivalent_diameter_px,perimeter_px,minor_diameter_px,major_diameter_px,aspect_ratio,"
            "touches_border,support,contrast,error_row_px,error_column_px,error_d1_px,error_d2_px,"
            "error_angle_deg");
}

TEST_F(Apura, AListaServeAosOutrosProgramas) {
  const std::vector<TEXTOS> t = tabela(feito({}));
  feito({}, "g.ho2");
  std::vector<MAXLOCAL> v;
  leMaxLocais(v, "g.ho2");
  ASSERT_EQ(v.size() + 1, t.size());
  for (std::size_t i = 0; i < v.size(); ++i) {
    EXPECT_EQ(std::string(1, v[i].forma), t[i + 1][1]);
    EXPECT_EQ(v[i].li, std::lround(std::stod(t[i + 1][3])));
    EXPECT_EQ(v[i].ci, std::lround(std::stod(t[i + 1][4])));
    EXPECT_NEAR(v[i].d1, std::stod(t[i + 1][5]), 1e-5);
  }
  std::filesystem::copy_file("foto.pgm", "g.pgm");
  EXPECT_EQ(executa({"relat", "g.ho2", "g.rel"}).estado, 0);
  EXPECT_EQ(executa({"traca", "foto.pgm", "g.ho2", "g.png"}).estado, 0);
  EXPECT_EQ(executa({"extraiam", "g.pgm", "1"}).estado, 0);
}

TEST_F(Apura, TodoSufixoDeImagemServe) {
  const cv::Mat_<pim::VEC3B> foto = imagem("foto.pgm");
  for (const char* sufixo :
       {"png", "PNG", "ppm", "pnm", "pgm", "tif", "tiff", "bmp", "jpg", "jpeg"}) {
    const std::string nome = std::string("g.") + sufixo;
    feito({}, nome);
    const cv::Mat_<pim::VEC3B> img = imagem(nome);
    ASSERT_EQ(img.size(), foto.size()) << sufixo;
    EXPECT_GT(diferentes(img, foto), 100) << sufixo;
    std::filesystem::remove(nome);
  }
  EXPECT_EQ(linhas(feito({}, "g.CSV")), 4U);
}

TEST_F(Apura, OsContornosSoMudamPixelsPertoDeles) {
  feito({}, "g.png");
  const cv::Mat_<pim::VEC3B> foto = imagem("foto.pgm");
  const cv::Mat_<pim::VEC3B> img = imagem("g.png");
  EXPECT_EQ(img(30, 35), foto(30, 35));  // the centre of a disc
  EXPECT_EQ(img(85, 110), foto(85, 110));
  EXPECT_NE(img(30, 45), foto(30, 45));  // its right end
  EXPECT_LT(diferentes(img, foto), 700);
  feito({"--indices"}, "n.png");
  EXPECT_GT(diferentes(imagem("n.png"), img), 100);
}

TEST_F(Apura, OsNumerosDeFiosEORumoDosBytesNaoMudamNada) {
  std::vector<MAXLOCAL> muitas;
  for (int k = 0; k < 300; ++k) {
    for (MAXLOCAL m : deteccoes()) {
      m.li += k % 5 - 2;
      m.ci += k / 5 % 5 - 2;
      m.d1 *= 1 + 0.01 * (k / 25);
      m.d2 *= 1 + 0.01 * (k / 25);
      muitas.push_back(m);
    }
  }
  grava("lista.ho1", listaHo(muitas));
  const std::string um = feito({"-j", "1"});
  EXPECT_GE(linhas(um), 4U);
  EXPECT_EQ(um, feito({"-j", "2"}));
  EXPECT_EQ(um, feito({"-j7"}));
  EXPECT_EQ(um, feito({}));
}

TEST_F(Apura, ListaVaziaDaTabelaVazia) {
  grava("lista.ho1", "0\n");
  EXPECT_EQ(linhas(feito({})), 1U);
  feito({}, "g.ho2");
  std::vector<MAXLOCAL> v;
  leMaxLocais(v, "g.ho2");
  EXPECT_TRUE(v.empty());
  feito({}, "g.png");
  EXPECT_EQ(diferentes(imagem("g.png"), imagem("foto.pgm")), 0);
}

TEST_F(Apura, FotoColoridaEhVistaEmCinza) {
  cv::Mat_<pim::VEC3B> cores(90, 120);
  const cv::Mat_<unsigned char> cinza = fotoDeGraos();
  for (int l = 0; l < 90; ++l) {
    for (int c = 0; c < 120; ++c) {
      const auto tom = [&](int mais) {
        return cv::saturate_cast<unsigned char>(cinza(l, c) + mais);
      };
      cores(l, c) = {tom(-30), tom(5), tom(20)};
    }
  }
  grava("cores.ppm", ppm(cores));
  const std::string csv = feito({}, "g.csv", "cores.ppm");
  EXPECT_EQ(linhas(csv), 4U);
  // The picture shows the grains of the table, though it reads the photograph in colour.
  feito({}, "g.ho2", "cores.ppm");
  feito({}, "g.ppm", "cores.ppm");
  EXPECT_GT(diferentes(imagem("g.ppm"), cores), 100);
  EXPECT_EQ(imagem("g.ppm")(30, 35), cores(30, 35));
}

}  // namespace
