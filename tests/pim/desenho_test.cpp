#include "pim/desenho.h"

#include <algorithm>
#include <cmath>
#include <ostream>
#include <random>

#include "fabrica.h"

using CINZA = cv::Mat_<unsigned char>;
using REAIS = cv::Mat_<float>;

namespace {

// One drawing call; `familia` is c (circle, of radius tam1), r (rectangle) or e (ellipse).
struct DESENHO {
  char familia;
  int l;
  int c;
  int tam1;
  int tam2;
  int espessura;
  double ang;
};

std::ostream& operator<<(std::ostream& s, const DESENHO& d) {
  return s << d.familia << " at (" << d.l << "," << d.c << ") " << d.tam1 << "x" << d.tam2
           << " width " << d.espessura << " angle " << d.ang;
}

template <class T>
void desenha(cv::Mat_<T>& img, const DESENHO& d, T cor) {
  if (d.familia == 'c') pim::circulo(img, d.l, d.c, d.tam1, cor, d.espessura);
  if (d.familia == 'r') {
    pim::rotRetang(img, d.l, d.c, d.tam1, d.tam2, cor, d.espessura, d.ang);
  }
  if (d.familia == 'e') pim::elipse(img, d.l, d.c, d.tam1, d.tam2, cor, d.espessura, d.ang);
}

// How far the pixel is from the edge, as a share of the size: the pixel belongs to the shape when
// the value is at most 1. `m` moves the edge inward.
double fora(const DESENHO& d, double dl, double dc, int m) {
  const double seno = std::sin(d.ang * 3.14159265358979323846 / 180);
  const double cosseno = std::cos(d.ang * 3.14159265358979323846 / 180);
  const double u = std::abs(dc * cosseno + dl * seno);
  const double v = std::abs(dl * cosseno - dc * seno);
  const double a = d.tam1 - m;
  const double b = d.tam2 - m;
  const double meia = d.familia == 'r' ? 0.5 : 0;
  if (d.familia == 'r') return std::max(u / (a + meia), v / (b + meia));
  if (d.familia == 'c') return dl == 0 && dc == 0 ? 0 : std::hypot(dl, dc) / a;
  const double pu = a > 0 ? u / a : (u <= 1e-9 * (1 + std::max(a, b)) ? 0 : 2);
  const double pv = b > 0 ? v / b : (v <= 1e-9 * (1 + std::max(a, b)) ? 0 : 2);
  return std::hypot(pu, pv);
}

bool pertence(const DESENHO& d, int y, int x) {
  const int menor = d.familia == 'c' ? d.tam1 : std::min(d.tam1, d.tam2);
  if (menor < 0 || d.espessura == 0) return false;
  const double dl = y - d.l;
  const double dc = x - d.c;
  const double limite = 1 + 1e-9;
  if (fora(d, dl, dc, 0) > limite) return false;
  return d.espessura < 0 || d.espessura > menor || fora(d, dl, dc, d.espessura) > limite;
}

// Tests every pixel of the image against the definition.
void exigeIgualAoIngenuo(const DESENHO& d, int rows, int cols) {
  CINZA img(rows, cols, 7);
  desenha<unsigned char>(img, d, 200);
  for (int y = 0; y < rows; ++y) {
    for (int x = 0; x < cols; ++x) {
      ASSERT_EQ(img(y, x), pertence(d, y, x) ? 200 : 7) << d << "; pixel " << y << "," << x;
    }
  }
}

DESENHO sorteiaDesenho(std::mt19937& sorteio, int maiorTamanho) {
  const auto entre = [&](int de, int ate) {
    return std::uniform_int_distribution<int>(de, ate)(sorteio);
  };
  DESENHO d{"cre"[entre(0, 2)],
            entre(-20, 70),
            entre(-20, 80),
            entre(-1, maiorTamanho),
            entre(-1, maiorTamanho),
            entre(-1, 4),
            0};
  const int como = entre(0, 3);
  if (como == 0) d.ang = 45.0 * entre(-16, 16);
  if (como == 1) d.ang = entre(-720, 720);
  if (como > 1) d.ang = std::uniform_real_distribution<double>(-400, 400)(sorteio);
  return d;
}

int conta(const CINZA& img) {
  return cv::countNonZero(img);
}

CINZA desenhada(const DESENHO& d, int lado) {
  CINZA img(lado, lado, static_cast<unsigned char>(0));
  desenha<unsigned char>(img, d, 255);
  return img;
}

bool ehSimetrica(const CINZA& img) {
  for (int y = 0; y < img.rows; ++y) {
    for (int x = 0; x < img.cols; ++x) {
      if (img(y, x) != img(img.rows - 1 - y, img.cols - 1 - x)) return false;
    }
  }
  return true;
}

}  // namespace

TEST(Desenho, FormasSorteadasIguaisADefinicaoPixelAPixel) {
  SCOPED_TRACE("seed 2024");
  std::mt19937 sorteio(2024);
  for (int vez = 0; vez < 3000 && !testing::Test::HasFailure(); ++vez) {
    exigeIgualAoIngenuo(sorteiaDesenho(sorteio, vez % 5 == 0 ? 120 : 25), 50, 60);
  }
}

TEST(Desenho, AngulosQuaseRetosIguaisADefinicao) {
  for (const char familia : {'r', 'e'}) {
    for (const double quarto : {0.0, 90.0, 180.0, -90.0}) {
      for (const double desvio : {1e-12, 1e-8, 1e-7, 1e-6, 1e-4, 1e-2, -1e-7, -1e-3}) {
        exigeIgualAoIngenuo({familia, 40, 41, 37, 5, -1, quarto + desvio}, 81, 83);
        exigeIgualAoIngenuo({familia, 40, 41, 0, 30, -1, quarto + desvio}, 81, 83);
      }
    }
  }
}

TEST(Desenho, CinzaEReaisPintamOsMesmosPixels) {
  SCOPED_TRACE("seed 8");
  std::mt19937 sorteio(8);
  for (int vez = 0; vez < 200; ++vez) {
    const DESENHO d = sorteiaDesenho(sorteio, 20);
    CINZA cinza(50, 60, static_cast<unsigned char>(0));
    REAIS reais(50, 60, 0.25F);
    desenha<unsigned char>(cinza, d, 255);
    desenha<float>(reais, d, -1.5F);
    for (int y = 0; y < 50; ++y) {
      for (int x = 0; x < 60; ++x) {
        ASSERT_EQ(reais(y, x), cinza(y, x) != 0 ? -1.5F : 0.25F) << d;
      }
    }
  }
}

TEST(Desenho, FormasSaoSimetricasEmRelacaoAoCentro) {
  SCOPED_TRACE("seed 9");
  std::mt19937 sorteio(9);
  for (int vez = 0; vez < 500; ++vez) {
    DESENHO d = sorteiaDesenho(sorteio, 25);
    d.l = d.c = 40;
    EXPECT_TRUE(ehSimetrica(desenhada(d, 81))) << d;
  }
}

TEST(Desenho, RecorteDeUmaImagemMaiorNaoDeixaVazar) {
  CINZA grande(60, 60, 7);
  CINZA janela = grande(cv::Rect(20, 25, 10, 12));
  for (const char familia : {'c', 'r', 'e'}) {
    desenha<unsigned char>(janela, {familia, 5, 5, 30, 30, -1, 33.0}, 200);
  }
  for (int y = 0; y < 60; ++y) {
    for (int x = 0; x < 60; ++x) {
      const bool dentro = y >= 25 && y < 37 && x >= 20 && x < 30;
      ASSERT_EQ(grande(y, x), dentro ? 200 : 7);
    }
  }
}

TEST(Desenho, ForaDaImagemNadaMuda) {
  for (const char familia : {'c', 'r', 'e'}) {
    for (const int longe : {-100, 150, 2147483647, -2147483647 - 1}) {
      EXPECT_EQ(conta(desenhada({familia, longe, 20, 15, 9, -1, 30}, 40)), 0);
      EXPECT_EQ(conta(desenhada({familia, 20, longe, 15, 9, 2, 30}, 40)), 0);
    }
  }
}

TEST(Desenho, ImagemVaziaEhAceita) {
  CINZA vazia;
  for (const char familia : {'c', 'r', 'e'}) {
    desenha<unsigned char>(vazia, {familia, 0, 0, 5, 5, -1, 10}, 1);
    desenha<unsigned char>(vazia, {familia, 0, 0, 5, 5, 1, 10}, 1);
  }
  EXPECT_TRUE(vazia.empty());
}

TEST(Desenho, FormaEnormeTerminaDepressaECobreAImagem) {
  for (const char familia : {'c', 'r', 'e'}) {
    EXPECT_EQ(conta(desenhada({familia, 20, 20, 1000000000, 1000000000, -1, 0}, 40)), 1600);
    EXPECT_EQ(conta(desenhada({familia, 20, 20, 1000000000, 1000000000, -1, 30}, 40)), 1600);
  }
  EXPECT_EQ(conta(desenhada({'r', 20, 20, 1000000000, 3, -1, 0}, 40)), 7 * 40);
  EXPECT_EQ(conta(desenhada({'r', 20, 20, 3, 1000000000, -1, 0}, 40)), 7 * 40);
}

TEST(Desenho, TamanhoNegativoNaoDesenhaNada) {
  EXPECT_EQ(conta(desenhada({'c', 9, 9, -1, 0, -1, 0}, 19)), 0);
  for (const char familia : {'r', 'e'}) {
    EXPECT_EQ(conta(desenhada({familia, 9, 9, -1, 5, -1, 0}, 19)), 0);
    EXPECT_EQ(conta(desenhada({familia, 9, 9, 5, -1, 1, 20}, 19)), 0);
  }
}

TEST(Desenho, TamanhoZeroEhUmPixelOuALinhaDoCentro) {
  EXPECT_EQ(conta(desenhada({'c', 9, 9, 0, 0, -1, 0}, 19)), 1);
  EXPECT_EQ(conta(desenhada({'r', 9, 9, 0, 0, -1, 0}, 19)), 1);
  EXPECT_EQ(conta(desenhada({'e', 9, 9, 0, 0, -1, 77}, 19)), 1);
  EXPECT_EQ(conta(desenhada({'e', 9, 9, 4, 0, -1, 0}, 19)), 9);
  EXPECT_EQ(conta(desenhada({'e', 9, 9, 0, 4, -1, 0}, 19)), 9);
  EXPECT_EQ(conta(desenhada({'e', 9, 9, 0, 5, -1, 45}, 19)), 7);  // diagonal, 5 / sqrt 2 = 3.5
}

TEST(Desenho, EspessuraZeroNaoDesenhaNada) {
  for (const char familia : {'c', 'r', 'e'}) {
    EXPECT_EQ(conta(desenhada({familia, 9, 9, 5, 5, 0, 0}, 19)), 0);
  }
}

TEST(Desenho, ContornoEhACascaDaFormaCheia) {
  for (const char familia : {'c', 'r', 'e'}) {
    const CINZA cheia = desenhada({familia, 30, 30, 20, 12, -1, 27}, 61);
    const CINZA casca = desenhada({familia, 30, 30, 20, 12, 1, 27}, 61);
    for (int k = 0; k < 61 * 61; ++k) {
      ASSERT_TRUE(casca(k / 61, k % 61) == 0 || cheia(k / 61, k % 61) != 0);
    }
    EXPECT_EQ(casca(30, 30), 0);
    EXPECT_GT(conta(casca), 60);
    const CINZA grossa = desenhada({familia, 30, 30, 20, 12, 100, 27}, 61);
    EXPECT_EQ(maiorDiferenca(grossa, cheia), 0);
  }
}

TEST(RotRetang, AnguloZeroTemLadosExatos) {
  const CINZA img = desenhada({'r', 20, 20, 9, 4, -1, 0}, 41);
  EXPECT_EQ(conta(img), 19 * 9);
  EXPECT_EQ(cv::countNonZero(img.row(20)), 19);  // the first size lies along the columns
  EXPECT_EQ(cv::countNonZero(img.col(20)), 9);
  const CINZA emPe = desenhada({'r', 20, 20, 9, 4, -1, 90}, 41);
  CINZA deitada;
  cv::transpose(emPe, deitada);
  EXPECT_EQ(maiorDiferenca(deitada, img), 0);
}

TEST(RotRetang, AreaNaoDependeDoAngulo) {
  for (const auto& [a, b] : {std::pair{40, 25}, {60, 3}, {12, 12}}) {
    const double area = (2 * a + 1.0) * (2 * b + 1);
    // Lattice points in a rotated rectangle: the error grows like the root of the perimeter.
    const double ruido = 3 * std::sqrt(2.0 * (2 * a + 1 + 2 * b + 1));
    for (double ang = 0; ang < 180; ang += 1.37) {
      const int pixels = conta(desenhada({'r', 80, 80, a, b, -1, ang}, 161));
      EXPECT_NEAR(pixels, area, ruido) << a << "x" << b << " angle " << ang;
    }
  }
}

TEST(RotRetang, AnguloPositivoGiraNoSentidoHorarioNaTela) {
  const CINZA img = desenhada({'r', 20, 20, 15, 2, -1, 30}, 41);
  EXPECT_NE(img(20 + 5, 20 + 9), 0);
  EXPECT_EQ(img(20 - 5, 20 + 9), 0);
}

TEST(Circulo, TemAAreaDosPontosNoDisco) {
  // Gauss's circle problem.
  const int pontos[] = {1, 5, 13, 29, 49, 81, 113, 149, 197, 253, 317};
  for (int r = 0; r <= 10; ++r)
    EXPECT_EQ(conta(desenhada({'c', 12, 12, r, 0, -1, 0}, 25)), pontos[r]);
}

TEST(Elipse, EixosIguaisDaoOCirculoEmQualquerAngulo) {
  for (const double ang : {0.0, 17.0, 45.0, 133.3}) {
    for (int r = 0; r <= 15; ++r) {
      const CINZA circulo = desenhada({'c', 20, 20, r, 0, -1, 0}, 41);
      EXPECT_EQ(maiorDiferenca(desenhada({'e', 20, 20, r, r, -1, ang}, 41), circulo), 0) << r;
    }
  }
}

namespace {

std::vector<pim::TRECHO> trechosDe(const DESENHO& d, int meio) {
  if (d.familia == 'c') return pim::trechosCirculo(meio, d.tam1);
  if (d.familia == 'r') return pim::trechosRotRetang(meio, d.tam1, d.tam2, d.ang);
  return pim::trechosElipse(meio, d.tam1, d.tam2, d.ang);
}

// The image that the stretches describe.
CINZA pintados(const std::vector<pim::TRECHO>& linhas) {
  const int lado = static_cast<int>(linhas.size());
  CINZA img(lado, lado, static_cast<unsigned char>(0));
  for (int y = 0; y < lado; ++y) {
    const pim::TRECHO& t = linhas[static_cast<std::size_t>(y)];
    for (int x = t.de; x <= t.ate; ++x) img(y, x + lado / 2) = 255;
  }
  return img;
}

}  // namespace

TEST(Trechos, SaoOsPixelsDaFormaCheia) {
  SCOPED_TRACE("seed 41");
  std::mt19937 sorteio(41);
  for (int vez = 0; vez < 2000 && !testing::Test::HasFailure(); ++vez) {
    DESENHO d = sorteiaDesenho(sorteio, vez % 4 == 0 ? 90 : 30);
    const int meio = static_cast<int>(sorteio() % 40);
    d.l = d.c = meio;
    d.espessura = -1;
    const CINZA cheia = desenhada(d, 2 * meio + 1);
    EXPECT_EQ(cv::norm(pintados(trechosDe(d, meio)), cheia, cv::NORM_INF), 0) << d;
  }
}

TEST(Trechos, DeFormasFinasOuNegativasTambem) {
  for (const char familia : {'c', 'r', 'e'}) {
    for (const int fino : {-3, -1, 0, 1}) {
      for (const double ang : {0.0, 90.0, 1e-9, 45.0, 179.999}) {
        const DESENHO d = {familia, 30, 30, familia == 'c' ? fino : 25, fino, -1, ang};
        EXPECT_EQ(cv::norm(pintados(trechosDe(d, 30)), desenhada(d, 61), cv::NORM_INF), 0) << d;
      }
    }
  }
}

TEST(Trechos, FormaDeMilhoesDePixelsNaoEhPercorridaPixelAPixel) {
  // Rows beside a flat shape cost no more than those inside it; pixel by pixel, the time limit of
  // the test would pass many times over.
  const auto deitado = pim::trechosRotRetang(200000, 200000, 3, 0);
  const auto linha = pim::trechosElipse(200000, 200000, 0, 180);
  const auto cheias = [](const std::vector<pim::TRECHO>& v) {
    return std::count_if(v.begin(), v.end(), [](pim::TRECHO t) { return t.de <= t.ate; });
  };
  EXPECT_EQ(cheias(deitado), 7);
  EXPECT_EQ(cheias(linha), 1);
}
