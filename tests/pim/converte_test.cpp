#include "pim/converte.h"

#include <cmath>
#include <random>

#include "fabrica.h"

namespace {

constexpr double inf = std::numeric_limits<double>::infinity();

// Mirror without repeating the edge pixel; a single pixel mirrors onto itself.
int espelha(int i, int n) {
  if (n == 1) return 0;
  while (i < 0 || i >= n) i = i < 0 ? -i : 2 * (n - 1) - i;
  return i;
}

double suaviza(const cv::Mat_<float>& a, int l, int c) {
  constexpr double pesos[] = {1, 4, 6, 4, 1};
  double soma = 0;
  for (int dl = -2; dl <= 2; ++dl) {
    for (int dc = -2; dc <= 2; ++dc) {
      soma += pesos[dl + 2] * pesos[dc + 2] * a(espelha(l + dl, a.rows), espelha(c + dc, a.cols));
    }
  }
  return soma / 256;
}

}  // namespace

TEST(ConverteParaReais, CalculaEmDoubleEArredondaUmaVez) {
  cv::Mat_<unsigned char> a(16, 16);
  for (int k = 0; k < 256; ++k) a(k / 16, k % 16) = static_cast<unsigned char>(k);
  for (const auto& [escala, desloc] :
       {std::pair{0.00392156862745098, 0.0}, {-1.0 / 3, 7.1}, {1e300, 0.0}, {0.0, -2.5}}) {
    cv::Mat_<float> b;
    pim::converte(a, b, escala, desloc);
    ASSERT_EQ(b.size(), a.size());
    for (int k = 0; k < 256; ++k) {
      EXPECT_EQ(b(k / 16, k % 16), static_cast<float>(k * escala + desloc)) << k;
    }
  }
}

TEST(ConverteParaReais, NiveisDeCinzaFicamDeZeroAUm) {
  const cv::Mat_<unsigned char> a = (cv::Mat_<unsigned char>(1, 2) << 0, 255);
  cv::Mat_<float> b;
  pim::converte(a, b, 0.00392156862745098, 0.0);
  EXPECT_EQ(b(0, 0), 0.0F);
  EXPECT_EQ(b(0, 1), 1.0F);
}

TEST(ConverteParaReais, ReusaODestinoDoMesmoTamanhoESegueRecortes) {
  const cv::Mat_<unsigned char> cena = cenaCinza(9, 8);
  const cv::Mat_<unsigned char> recorte = cena(cv::Rect(1, 2, 5, 4));
  cv::Mat_<float> b(4, 5);
  const float* antes = b[0];
  pim::converte(recorte, b, 1, 0);
  EXPECT_EQ(b[0], antes);
  for (int l = 0; l < 4; ++l) {
    for (int c = 0; c < 5; ++c) EXPECT_EQ(b(l, c), cena(l + 2, c + 1));
  }
}

TEST(ConverteParaReais, ImagemVaziaDaVazia) {
  cv::Mat_<float> b(3, 3);
  pim::converte(cv::Mat_<unsigned char>(), b, 1, 0);
  EXPECT_TRUE(b.empty());
}

TEST(ConverteParaCor, OsTresCanaisTemOCinza) {
  const cv::Mat_<unsigned char> a = aleatoria(7, 5, CV_8UC1, 8);
  cv::Mat_<pim::VEC3B> b;
  pim::converte(a, b);
  ASSERT_EQ(b.size(), a.size());
  for (int l = 0; l < a.rows; ++l) {
    for (int c = 0; c < a.cols; ++c) EXPECT_EQ(b(l, c), pim::VEC3B::all(a(l, c)));
  }
}

TEST(ConverteParaCinza, CinzasFicamComoSao) {
  cv::Mat_<unsigned char> a(16, 16);
  for (int i = 0; i < 256; ++i) a(i / 16, i % 16) = static_cast<unsigned char>(i);
  cv::Mat_<pim::VEC3B> cor;
  pim::converte(a, cor);
  cv::Mat_<unsigned char> b;
  pim::converte(cor, b);
  EXPECT_EQ(maiorDiferenca(a, b), 0);
}

TEST(MyPyrDown, ArredondaOTamanhoParaCima) {
  for (const auto& [rows, cols] : {std::pair{8, 6}, {7, 5}, {1, 1}, {2, 1}, {1, 9}}) {
    cv::Mat_<float> b;
    pim::myPyrDown(cv::Mat_<float>(rows, cols, 0.25F), b);
    EXPECT_EQ(b.size(), cv::Size((cols + 1) / 2, (rows + 1) / 2));
    EXPECT_LE(maiorDiferenca(b, cv::Mat_<float>(b.size(), 0.25F)), 1e-7);
  }
}

TEST(MyPyrDown, IgualAoFiltroBinomialIngenuo) {
  SCOPED_TRACE("seed 31");
  std::mt19937 sorteio(31);
  std::uniform_real_distribution<float> nivel(0, 1);
  for (const auto& [rows, cols] : {std::pair{20, 31}, {13, 8}, {5, 5}, {3, 17}}) {
    cv::Mat_<float> a(rows, cols);
    for (float& x : a) x = nivel(sorteio);
    cv::Mat_<float> b;
    pim::myPyrDown(a, b);
    for (int l = 0; l < b.rows; ++l) {
      for (int c = 0; c < b.cols; ++c) ASSERT_NEAR(b(l, c), suaviza(a, 2 * l, 2 * c), 1e-5);
    }
  }
}

TEST(Arredonda, EmpateVaiParaOPar) {
  EXPECT_EQ(pim::arredonda(0.5), 0);
  EXPECT_EQ(pim::arredonda(1.5), 2);
  EXPECT_EQ(pim::arredonda(-0.5), 0);
  EXPECT_EQ(pim::arredonda(-2.5), -2);
  EXPECT_EQ(pim::arredonda(2.4999), 2);
  EXPECT_EQ(pim::arredonda(-2.51), -3);
}

TEST(Trunca, VaiParaZero) {
  EXPECT_EQ(pim::trunca(2.999), 2);
  EXPECT_EQ(pim::trunca(-2.999), -2);
}

TEST(Arredonda, ForaDaFaixaDaOExtremoENaNOMenor) {
  constexpr int menor = std::numeric_limits<int>::min();
  for (const auto operacao : {pim::arredonda, pim::trunca}) {
    EXPECT_EQ(operacao(1e10), pim::maxint);
    EXPECT_EQ(operacao(-1e10), menor);
    EXPECT_EQ(operacao(inf), pim::maxint);
    EXPECT_EQ(operacao(-inf), menor);
    EXPECT_EQ(operacao(std::nan("")), menor);
    EXPECT_EQ(operacao(2147483647.0), pim::maxint);
    EXPECT_EQ(operacao(-2147483648.0), menor);
    EXPECT_EQ(operacao(2147483646.0), 2147483646);
  }
}
