#include "examples/cenas/forma/ajuste.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace cenas {

namespace {

constexpr int pontos = 80;  // of the longer side of the outline's box

// The outline once sampled, so that many shapes can be held against it.
struct AMOSTRA {
  std::vector<cv::Point2d> dentro;
  double passo = 1;  // side of the square that each point stands for
};

AMOSTRA amostra(const CONTORNO& contorno) {
  AMOSTRA a;
  const cv::Rect2d caixa = [&] {
    cv::Point2d de = contorno.front();
    cv::Point2d ate = de;
    for (const cv::Point2d& p : contorno) {
      de = {std::min(de.x, p.x), std::min(de.y, p.y)};
      ate = {std::max(ate.x, p.x), std::max(ate.y, p.y)};
    }
    return cv::Rect2d(de, ate);
  }();
  a.passo = std::max(caixa.width, caixa.height) / pontos;
  CONTORNO ampliado;
  for (const cv::Point2d& p : contorno) ampliado.push_back((p - caixa.tl()) / a.passo);
  const RETALHO r = cobertura(ampliado);
  for (int l = 0; l < r.valor.rows; ++l) {
    for (int c = 0; c < r.valor.cols; ++c) {
      if (r.valor(l, c) < 0.5F) continue;
      a.dentro.push_back(caixa.tl() + a.passo * cv::Point2d(c + r.canto.x, l + r.canto.y));
    }
  }
  return a;
}

double areaDe(const GRAO& g) {
  const double d = diametro(g);
  return std::numbers::pi * d * d / 4;
}

double parteComum(const AMOSTRA& a, const GRAO& g) {
  const FIGURA f(g);
  double ambos = 0;
  for (const cv::Point2d& p : a.dentro) ambos += f.dentro(p.y, p.x) ? 1 : 0;
  ambos *= a.passo * a.passo;
  const double algum = areaDe(g) + static_cast<double>(a.dentro.size()) * a.passo * a.passo - ambos;
  return ambos / algum;
}

// The same shape a little beside, turned, longer and shorter, at equal area.
std::vector<GRAO> vizinhas(const GRAO& g, double passo) {
  std::vector<GRAO> v;
  for (const double sinal : {-passo, passo}) {
    v.insert(v.end(), 4, g);
    GRAO* const nova = &v[v.size() - 4];
    nova[0].linha += sinal * diametro(g);
    nova[1].coluna += sinal * diametro(g);
    if (g.forma != 'c') nova[2].ang += sinal * 90;
    if (g.forma != 'r' && g.forma != 'e') continue;
    nova[3].d1 *= 1 + sinal;
    nova[3].d2 /= 1 + sinal;
  }
  return v;
}

}  // namespace

double semelhanca(const CONTORNO& contorno, const GRAO& g) {
  return parteComum(amostra(contorno), g);
}

// Uphill from `inicio` in ever smaller steps.
GRAO ajusta(const CONTORNO& contorno, char forma, const GRAO& inicio) {
  const AMOSTRA a = amostra(contorno);
  GRAO melhor = inicio;
  melhor.forma = forma;
  const double fator = std::sqrt(std::abs(area(contorno)) / areaDe(melhor));
  melhor.d1 *= fator;
  melhor.d2 *= fator;
  double valor = parteComum(a, melhor);
  for (double passo = 0.06; passo > 0.001;) {
    const double antes = valor;
    for (const GRAO& g : vizinhas(melhor, passo)) {
      const double x = parteComum(a, g);
      if (x <= valor) continue;
      valor = x;
      melhor = g;
    }
    if (valor <= antes) passo /= 2;
  }
  return melhor;
}

}  // namespace cenas
