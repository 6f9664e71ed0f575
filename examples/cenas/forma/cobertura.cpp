#include "examples/cenas/forma/cobertura.h"

#include <algorithm>
#include <cmath>

namespace cenas {

namespace {

cv::Rect caixaDe(const CONTORNO& contorno, int margem) {
  cv::Point2d menor = contorno.front();
  cv::Point2d maior = menor;
  for (const cv::Point2d& p : contorno) {
    menor = {std::min(menor.x, p.x), std::min(menor.y, p.y)};
    maior = {std::max(maior.x, p.x), std::max(maior.y, p.y)};
  }
  const cv::Point de(static_cast<int>(std::floor(menor.x + 0.5)) - margem,
                     static_cast<int>(std::floor(menor.y + 0.5)) - margem);
  const cv::Point ate(static_cast<int>(std::floor(maior.x + 0.5)) + margem,
                      static_cast<int>(std::floor(maior.y + 0.5)) + margem);
  return {de, cv::Size(ate.x - de.x + 1, ate.y - de.y + 1)};
}

// What a stretch of a side from column x0 to x1, `altura` rows high, adds to its row: to each pixel
// the growth, from the pixel before, of the share that lies right of it.
void somaTrecho(double* linha, double x0, double x1, double altura) {
  const double esquerda = std::min(x0, x1);
  const double largura = std::abs(x1 - x0);
  const int primeiro = static_cast<int>(std::floor(esquerda));
  const int ultimo = static_cast<int>(std::floor(esquerda + largura));
  // Area left of column x, right of which the stretch still has to pass, by its integral.
  const auto aDireita = [&](double x) {
    if (x <= esquerda) return 0.0;
    if (x >= esquerda + largura) return x - esquerda - largura / 2;
    return (x - esquerda) * (x - esquerda) / (2 * largura);
  };
  double antes = 0;
  double parteAntes = 0;
  for (int c = primeiro; c <= ultimo + 1; ++c) {
    const double depois = aDireita(c + 1.0);
    const double parte = depois - antes;
    linha[c] += altura * (parte - parteAntes);
    antes = depois;
    parteAntes = parte;
  }
}

// `crescimento` has a column more than the piece; a side keeps within it.
void somaLado(cv::Mat_<double>& crescimento, cv::Point2d p, cv::Point2d q) {
  if (p.y == q.y) return;
  const double sentido = p.y < q.y ? 1 : -1;
  if (p.y > q.y) std::swap(p, q);
  const double inclinacao = (q.x - p.x) / (q.y - p.y);
  for (int l = static_cast<int>(std::floor(p.y)); l < q.y; ++l) {
    const double y0 = std::max(p.y, static_cast<double>(l));
    const double y1 = std::min(q.y, l + 1.0);
    const double x0 = p.x + (y0 - p.y) * inclinacao;
    const double x1 = p.x + (y1 - p.y) * inclinacao;
    somaTrecho(crescimento[l], x0, x1, sentido * (y1 - y0));
  }
}

}  // namespace

RETALHO cobertura(const CONTORNO& contorno, int margem) {
  const cv::Rect r = caixaDe(contorno, std::max(margem, 1));
  // From picture places, where a pixel is centred, to places in the piece, where it begins.
  const cv::Point2d desloca(0.5 - r.x, 0.5 - r.y);
  cv::Mat_<double> crescimento(r.height, r.width + 2, 0.0);
  for (std::size_t i = 0; i < contorno.size(); ++i) {
    somaLado(crescimento, contorno[i] + desloca, contorno[(i + 1) % contorno.size()] + desloca);
  }
  RETALHO saida{r.tl(), cv::Mat_<float>(r.size())};
  for (int l = 0; l < r.height; ++l) {
    double soma = 0;
    for (int c = 0; c < r.width; ++c) {
      soma += crescimento(l, c);
      saida.valor(l, c) = static_cast<float>(std::min(std::abs(soma), 1.0));
    }
  }
  return saida;
}

double area(const CONTORNO& contorno) {
  double dobro = 0;
  for (std::size_t i = 0; i < contorno.size(); ++i) {
    const cv::Point2d& p = contorno[i];
    const cv::Point2d& q = contorno[(i + 1) % contorno.size()];
    dobro += p.x * q.y - q.x * p.y;
  }
  return dobro / 2;
}

}  // namespace cenas
