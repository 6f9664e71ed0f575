#include "estampa/rotulos.h"

#include <algorithm>
#include <cmath>

#include "pim/converte.h"

namespace estampa {
namespace {

using refine::EIXOS;
using refine::FIGURA;

// Sums that should be at a side differ from it by their rounding.
constexpr double folga = 1e-9;

bool entreOsLados(double dobro, double tamanho) {
  return dobro >= -tamanho - folga && dobro < tamanho - folga;
}

bool tem(const FIGURA& f, const EIXOS& e, int l, int c) {
  if (f.forma == 'c' || f.forma == 'e') return refine::contem(f, e, l, c);
  return entreOsLados(2 * e.u(l, c), f.d1) && entreOsLados(2 * e.v(l, c), f.d2);
}

// The whole numbers from `centro` - `meia` to `centro` + `meia` that are from 0 to `n` - 1.
cv::Range faixa(double centro, double meia, int n) {
  const int de = std::max(pim::arredonda(std::ceil(centro - meia - folga)), 0);
  const int ate = std::min(pim::arredonda(std::floor(centro + meia + folga)), n - 1);
  return {de, std::max(ate + 1, de)};
}

void pinta(cv::Mat_<int>& img, const FIGURA& f, int rotulo) {
  const refine::CAIXA caixa = refine::meiaCaixa(f);
  const EIXOS eixos(f);
  const cv::Range linhas = faixa(f.l, caixa.altura, img.rows);
  const cv::Range colunas = faixa(f.c, caixa.largura, img.cols);
  for (int l = linhas.start; l < linhas.end; ++l) {
    for (int c = colunas.start; c < colunas.end; ++c) {
      int& pixel = img(l, c);
      if (pixel == 0 && tem(f, eixos, l, c)) pixel = rotulo;
    }
  }
}

}  // namespace

cv::Mat_<int> rotulos(cv::Size lados, const std::vector<FIGURA>& figuras) {
  cv::Mat_<int> img(lados, 0);
  int rotulo = 0;
  for (const FIGURA& f : figuras) pinta(img, f, ++rotulo);
  return img;
}

}  // namespace estampa
