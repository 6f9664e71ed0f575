#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <numbers>

#include "examples/cenario.h"

namespace {

const CENARIO pequeno = {300, 400, 40, 7};

// FNV-1a over the pixels.
std::uint64_t resumo(const cv::Mat_<unsigned char>& img) {
  std::uint64_t h = 0xCBF29CE484222325ULL;
  for (const unsigned char x : img) h = (h ^ x) * 0x100000001B3ULL;
  return h;
}

cv::Mat_<unsigned char> foto(const CENARIO& cenario) {
  return pinta(cenario, povoa(cenario));
}

double area(const GRAO& g) {
  const double d = diametro(g);
  return std::numbers::pi * d * d / 4;
}

template <class ACAO>
void paraCadaPixel(const cv::Rect& r, ACAO acao) {
  for (int l = r.y; l < r.y + r.height; ++l) {
    for (int c = r.x; c < r.x + r.width; ++c) acao(l, c);
  }
}

bool tocam(const GRAO& a, const GRAO& b) {
  const FIGURA fa(crescido(a, 2));
  const FIGURA fb(b);
  bool toca = false;
  paraCadaPixel(fa.caixa() & fb.caixa(),
                [&](int l, int c) { toca = toca || (fa.dentro(l, c) && fb.dentro(l, c)); });
  return toca;
}

}  // namespace

TEST(Cena, MesmaSementeDaOsMesmosBytes) {
  EXPECT_EQ(resumo(foto(pequeno)), resumo(foto(pequeno)));
  EXPECT_EQ(resumo(foto(pequeno)), 8709163607366695134ULL);
}

TEST(Cena, OutraSementeDaOutraCena) {
  CENARIO outro = pequeno;
  outro.semente = 8;
  EXPECT_NE(resumo(foto(outro)), resumo(foto(pequeno)));
}

TEST(Cena, GraosFicamDentroDaImagemENosLimites) {
  const std::vector<GRAO> graos = povoa(pequeno);
  EXPECT_EQ(graos.size(), 40U);
  for (const GRAO& g : graos) {
    const cv::Rect r = FIGURA(g).caixa();
    EXPECT_EQ(r & cv::Rect(0, 0, 400, 300), r);
    EXPECT_GE(g.d2, 9);
    EXPECT_LE(g.d1, 48);
  }
}

TEST(Cena, GraosNaoSeCobrem) {
  const std::vector<GRAO> graos = povoa(pequeno);
  cv::Mat_<double> coberto(300, 400, 0.0);
  double total = 0;
  for (const GRAO& g : graos) {
    const FIGURA f(g);
    const cv::Rect r = f.caixa();
    for (int l = r.y; l < r.y + r.height; ++l) {
      for (int c = r.x; c < r.x + r.width; ++c) coberto(l, c) += f.cobertura(l, c);
    }
    total += area(g);
  }
  double repetido = 0;
  for (const double x : coberto) repetido += std::max(x - 1, 0.0);
  EXPECT_LT(repetido, 0.005 * total);
}

TEST(Cena, CoberturaSomaAAreaDaForma) {
  for (const char forma : {'c', 'q', 'r', 'e'}) {
    const GRAO g = {forma, 40.37, 50.81, 31.5, forma == 'r' || forma == 'e' ? 13.25 : 31.5, 28};
    const FIGURA f(g);
    const cv::Rect r = f.caixa();
    double soma = 0;
    for (int l = r.y - 1; l <= r.y + r.height; ++l) {
      for (int c = r.x - 1; c <= r.x + r.width; ++c) soma += f.cobertura(l, c);
    }
    EXPECT_NEAR(soma, area(g), 0.003 * area(g)) << forma;
  }
}

// The darkness that a lone grain brings has the place, the shape and the area that the truth tells.
TEST(Cena, VerdadeConfereComOsPixels) {
  const GRAO g = {'e', 70.3, 90.6, 44, 20, 30};
  const CENARIO um = {140, 180, 1, 3};
  const cv::Rect tudo(0, 0, um.colunas, um.linhas);
  cv::Mat_<double> falta;
  cv::subtract(pinta(um, {}), pinta(um, {g}), falta, cv::noArray(), CV_64F);
  double escuro = 0;
  cv::Point2d centro;
  paraCadaPixel(tudo, [&](int l, int c) {
    escuro += falta(l, c);
    centro += falta(l, c) * cv::Point2d(c, l);
  });
  EXPECT_NEAR(centro.y / escuro, g.linha, 0.8);
  EXPECT_NEAR(centro.x / escuro, g.coluna, 0.8);
  EXPECT_NEAR(escuro / falta(70, 90), area(g), 0.25 * area(g));

  const FIGURA miolo(crescido(g, -4));
  const FIGURA redor(crescido(g, 4));
  int errados = 0;
  paraCadaPixel(tudo, [&](int l, int c) {
    const bool escuroAqui = falta(l, c) > 30;
    if (miolo.dentro(l, c) && !escuroAqui) ++errados;
    if (!redor.dentro(l, c) && escuroAqui) ++errados;
  });
  EXPECT_EQ(errados, 0);
}

TEST(Cena, HaGraosEncostadosEAsQuatroFamilias) {
  const std::vector<GRAO> graos = povoa({768, 1024, 200, 1});
  std::map<char, int> quantos;
  for (const GRAO& g : graos) ++quantos[g.forma];
  for (const char forma : {'c', 'q', 'r', 'e'}) EXPECT_GE(quantos[forma], 30) << forma;
  const auto encostados = std::count_if(graos.begin(), graos.end(), [&](const GRAO& a) {
    return std::any_of(graos.begin(), graos.end(),
                       [&](const GRAO& b) { return &a != &b && tocam(a, b); });
  });
  EXPECT_GE(encostados, 40);
}
