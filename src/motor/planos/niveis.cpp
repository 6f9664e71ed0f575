#include "motor/planos/niveis.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace motor {
namespace {

// What an image value of 1 becomes in a photograph and in its first reduction, 255 * 256.
constexpr std::array<double, 2> unidadesInteiras = {unidadeDeBytes, 65280.0};
constexpr double erroMaximo = 1.8e-7;  // of float rounding, see niveis.h

// Whether every value is a multiple of 1/unidade, 0 or more, to within `erroMaximo`.
bool ehInteira(const cv::Mat_<float>& imagem, double unidade) {
  for (int l = 0; l < imagem.rows; ++l) {
    const float* linha = imagem[l];
    double pior = 0;
    for (int c = 0; c < imagem.cols; ++c) {
      const double x = linha[c] * unidade;
      pior = std::max({pior, std::abs(x - std::nearbyint(x)), -x});
    }
    if (pior > erroMaximo * unidade) return false;
  }
  return true;
}

// The largest absolute value; infinity or not a number when the image holds one.
double maiorValor(const cv::Mat_<float>& imagem) {
  double maior = 0;
  for (const float v : imagem) {
    const double x = std::abs(static_cast<double>(v));
    if (!std::isfinite(x)) return x;
    maior = std::max(maior, x);
  }
  return maior;
}

}  // namespace

NIVEL comoReal(const NIVEL& nivel) {
  return {nivel.imagem, REPRESENTACAO::real, unidadeReal, 0, nivel.maior, {}};
}

NIVEL representa(const cv::Mat_<float>& imagem) {
  const double maior = maiorValor(imagem);
  if (!std::isfinite(maior)) return {imagem, REPRESENTACAO::nenhuma, 1, 0, maior, {}};
  for (const double unidade : unidadesInteiras) {
    if (maior <= 1 + erroMaximo && ehInteira(imagem, unidade)) {
      NIVEL nivel{imagem, REPRESENTACAO::inteira, unidade, std::floor(unidade / 2), maior, {}};
      if (unidade == unidadeDeBytes) imagem.convertTo(nivel.bytes, CV_8U, unidade);
      return nivel;
    }
  }
  return comoReal({imagem, REPRESENTACAO::real, 1, 0, maior, {}});
}

}  // namespace motor
