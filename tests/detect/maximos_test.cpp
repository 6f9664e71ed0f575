#include "detect/maximos.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include "apoio/detector.h"
#include "apoio/erros.h"

namespace {

using FLOAT = cv::Mat_<float>;
using INTEIRO = cv::Mat_<int>;

MASCARA mascara(char forma, double d1, double d2, double ang) {
  MASCARA m;
  m.forma = forma;
  m.d1 = d1;
  m.d2 = d2;
  m.ang = ang;
  return m;
}

const std::vector<MASCARA> formas = {mascara('c', 9, 9, 0), mascara('r', 10, 6, 30),
                                     mascara('e', 12.5, 7.25, 170)};

// The maps of a pyramid over an image of the given size, without correlation and without kernels.
struct MAPAS {
  MELHORCORREL correl;
  MELHORKERNEL kernel;

  MAPAS(int rows, int cols, int niveis) {
    for (int L = 0; L < niveis; ++L) {
      correl.emplace_back(rows, cols, -1.0F);
      kernel.emplace_back(rows, cols, 0);
      rows = (rows + 1) / 2;
      cols = (cols + 1) / 2;
    }
  }

  std::vector<MAXLOCAL> acha(double minCorr) const {
    std::vector<MAXLOCAL> v;
    findMaxLocal(correl, kernel, formas, v, minCorr);
    return v;
  }
};

bool superadoPorVizinho(const FLOAT& M, int r, int c) {
  float maior = M(r, c);
  for (int dl = -1; dl <= 1; ++dl) {
    for (int dc = -1; dc <= 1; ++dc) maior = std::max(maior, M(r + dl, c + dc));
  }
  return maior > M(r, c);
}

std::vector<MAXLOCAL> achaIngenuo(const MAPAS& m, double minCorr) {
  std::vector<MAXLOCAL> v;
  int escala = 1;
  for (std::size_t L = 0; L < m.correl.size(); ++L, escala *= 2) {
    const FLOAT& M = m.correl[L];
    for (int r = 0; r < M.rows; ++r) {
      for (int c = 0; c < M.cols; ++c) {
        if (r == 0 || c == 0 || r == M.rows - 1 || c == M.cols - 1) continue;
        if (static_cast<double>(M(r, c)) < minCorr || superadoPorVizinho(M, r, c)) continue;
        if (m.kernel[L](r, c) == -1) continue;
        const MASCARA& k = formas[static_cast<std::size_t>(m.kernel[L](r, c))];
        v.push_back({M(r, c), k.forma, (r + 1) * escala - 1, (c + 1) * escala - 1, escala * k.d1,
                     escala * k.d2, k.ang});
      }
    }
  }
  return v;
}

}  // namespace

TEST(FindMaxLocal, MapasSorteadosComPlatosSaoOsDaVarreduraIngenua) {
  constexpr unsigned semente = 34000;
  SCOPED_TRACE(semente);
  std::mt19937 g(semente);
  std::size_t achados = 0;
  for (int vez = 0; vez < 200; ++vez) {
    MAPAS m(1 + static_cast<int>(g() % 40), 1 + static_cast<int>(g() % 40),
            1 + static_cast<int>(g() % 5));
    const unsigned tons = 2 + static_cast<unsigned>(g() % 12);
    for (std::size_t L = 0; L < m.correl.size(); ++L) {
      for (float& x : m.correl[L]) x = static_cast<float>(g() % tons) / 8.0F - 0.5F;
      for (int& k : m.kernel[L]) k = static_cast<int>(g() % 4) - 1;
    }
    const double minCorr = static_cast<double>(g() % 9) / 8 - 0.5;
    const std::vector<MAXLOCAL> esperados = achaIngenuo(m, minCorr);
    ASSERT_EQ(primeiraDiferenca(m.acha(minCorr), esperados), -1);
    achados += esperados.size();
  }
  EXPECT_GT(achados, 1000U);
}

TEST(FindMaxLocal, NivelMenorQue3Por3NaoTemMaximos) {
  for (const cv::Size s : {cv::Size(2, 9), cv::Size(9, 2), cv::Size(1, 1)}) {
    MAPAS m(s.height, s.width, 1);
    m.correl[0] = 1.0F;
    EXPECT_TRUE(m.acha(0).empty()) << s;
  }
}

TEST(FindMaxLocal, ImagemDe3Por3SoTemOCentro) {
  MAPAS m(3, 3, 1);
  m.correl[0] = 0.5F;
  const std::vector<MAXLOCAL> v = m.acha(0.5);
  ASSERT_EQ(v.size(), 1U);
  EXPECT_TRUE(iguais(v[0], {0.5F, 'c', 1, 1, 9, 9, 0}));
}

TEST(FindMaxLocal, IgualAoMinimoFicaEUmFioAbaixoSai) {
  MAPAS m(5, 5, 1);
  m.correl[0](2, 2) = 0.25F;
  EXPECT_EQ(m.acha(0.25).size(), 1U);
  m.correl[0](2, 2) = std::nextafter(0.25F, 0.0F);
  EXPECT_TRUE(m.acha(0.25).empty());
}

TEST(FindMaxLocal, MinimoEhComparadoEmDouble) {
  MAPAS m(5, 5, 1);
  m.correl[0](2, 2) = 0.1F;  // a little above the double 0.1
  EXPECT_EQ(m.acha(0.1).size(), 1U);
  m.correl[0](2, 2) = 0.7F;  // a little below the double 0.7
  EXPECT_TRUE(m.acha(0.7).empty());
}

TEST(FindMaxLocal, PlatoDaTodosOsSeusPixelsInteriores) {
  MAPAS m(6, 7, 1);
  m.correl[0] = 0.5F;
  EXPECT_EQ(m.acha(0.5).size(), 4U * 5);
}

TEST(FindMaxLocal, PlatoAoLadoDeUmMaiorSoPerdeOsVizinhosDele) {
  MAPAS m(7, 9, 1);
  m.correl[0] = 0.5F;
  m.correl[0](3, 2) = 0.6F;
  // 5 x 7 interior pixels less the eight around the peak.
  EXPECT_EQ(m.acha(0.5).size(), 35U - 8);
}

TEST(FindMaxLocal, VizinhoMaiorNaBordaImpedeOMaximo) {
  MAPAS m(5, 5, 1);
  m.correl[0](1, 1) = 0.5F;
  m.correl[0](0, 0) = 0.6F;
  EXPECT_TRUE(m.acha(0).empty());
}

TEST(FindMaxLocal, Nivel2Linha5Coluna7TemDeslocamentoETamanhoDoNivel) {
  MAPAS m(64, 64, 3);
  m.correl[2](5, 7) = 0.9F;
  m.kernel[2](5, 7) = 1;
  const std::vector<MAXLOCAL> v = m.acha(0.1);
  ASSERT_EQ(v.size(), 1U);
  EXPECT_TRUE(iguais(v[0], {0.9F, 'r', 23, 31, 40, 24, 30}));
}

TEST(FindMaxLocal, OrdemEhNivelLinhaColuna) {
  MAPAS m(32, 32, 2);
  for (const auto& [l, c] : {std::pair{5, 20}, {5, 3}, {2, 25}}) m.correl[0](l, c) = 0.5F;
  m.correl[1](1, 1) = 0.9F;
  const std::vector<MAXLOCAL> v = m.acha(0.1);
  ASSERT_EQ(v.size(), 4U);
  EXPECT_EQ(v[0].li, 2);
  EXPECT_EQ(v[1].ci, 3);
  EXPECT_EQ(v[2].ci, 20);
  EXPECT_EQ(v[3].li, 3);
}

TEST(FindMaxLocal, AcrescentaSemApagar) {
  MAPAS m(5, 5, 1);
  m.correl[0](2, 2) = 0.5F;
  std::vector<MAXLOCAL> v(3);
  findMaxLocal(m.correl, m.kernel, formas, v, 0.1);
  EXPECT_EQ(v.size(), 4U);
}

TEST(FindMaxLocal, PixelQueNenhumKernelMelhorouEhPulado) {
  MAPAS m(5, 5, 1);
  m.kernel[0] = -1;
  EXPECT_TRUE(m.acha(-1.0).empty());
  EXPECT_TRUE(m.acha(-std::numeric_limits<double>::infinity()).empty());
  m.kernel[0](1, 3) = 2;
  EXPECT_EQ(m.acha(-1.0).size(), 1U);
}

TEST(FindMaxLocal, SemNiveisNaoHaMaximos) {
  EXPECT_TRUE(MAPAS(5, 5, 0).acha(0).empty());
}

TEST(FindMaxLocal, MapasDeTamanhosDiferentesSaoErro) {
  const char* mensagem = "Erro findMaxLocal: Nao dentro";
  MAPAS estreito(9, 9, 1);
  estreito.correl[0](7, 7) = 0.5F;
  estreito.kernel[0] = INTEIRO(9, 7, 0);
  EXPECT_EQ(erroDe([&] { estreito.acha(0); }), mensagem);
  estreito.kernel[0] = INTEIRO(7, 9, 0);
  EXPECT_EQ(erroDe([&] { estreito.acha(0); }), mensagem);
  estreito.kernel.clear();
  EXPECT_EQ(erroDe([&] { estreito.acha(0); }), mensagem);
}

TEST(FindMaxLocal, MaximoForaDaImagemEhErro) {
  MAPAS m(16, 16, 2);
  m.correl[1](6, 6) = 0.5F;
  EXPECT_EQ(m.acha(0).size(), 1U);
  m.correl[0] = FLOAT(13, 16, -1.0F);
  m.kernel[0] = INTEIRO(13, 16, 0);  // row 6 of level 1 is row 13 of the image
  EXPECT_EQ(erroDe([&] { m.acha(0); }), "Erro findMaxLocal: Nao dentro");
}
