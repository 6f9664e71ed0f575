#include "examples/cenas/ajuste.h"

#include <algorithm>
#include <cmath>
#include <functional>
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

double semelhanca(const AMOSTRA& a, const GRAO& g) {
  const FIGURA f(g);
  double ambos = 0;
  for (const cv::Point2d& p : a.dentro) ambos += f.dentro(p.y, p.x) ? 1 : 0;
  ambos *= a.passo * a.passo;
  const double algum = areaDe(g) + static_cast<double>(a.dentro.size()) * a.passo * a.passo - ambos;
  return ambos / algum;
}

// The same shape with another ratio of sizes, at equal area.
GRAO alongado(GRAO g, double fator) {
  g.d1 *= fator;
  g.d2 /= fator;
  return g;
}

}  // namespace

double semelhanca(const CONTORNO& contorno, const GRAO& g) {
  return semelhanca(amostra(contorno), g);
}

GRAO ajusta(const CONTORNO& contorno, char forma, const GRAO& inicio) {
  const AMOSTRA a = amostra(contorno);
  GRAO melhor = inicio;
  melhor.forma = forma;
  const double fator = std::sqrt(std::abs(area(contorno)) / areaDe(melhor));
  melhor.d1 *= fator;
  melhor.d2 *= fator;
  double valor = semelhanca(a, melhor);
  const bool alonga = forma == 'r' || forma == 'e';
  for (double passo = 0.06; passo > 0.001; passo /= 2) {
    for (int rodada = 0; rodada < 4; ++rodada) {
      const double antes = valor;
      const double lado = passo * diametro(melhor);
      const auto tenta = [&](GRAO g) {
        const double x = semelhanca(a, g);
        if (x <= valor) return;
        valor = x;
        melhor = g;
      };
      for (const double sinal : {-1.0, 1.0}) {
        GRAO g = melhor;
        g.linha += sinal * lado;
        tenta(g);
        g = melhor;
        g.coluna += sinal * lado;
        tenta(g);
        g = melhor;
        g.ang += sinal * passo * 90;
        if (forma != 'c') tenta(g);
        if (alonga) tenta(alongado(melhor, 1 + sinal * passo));
      }
      if (valor <= antes) break;
    }
  }
  return melhor;
}

}  // namespace cenas
