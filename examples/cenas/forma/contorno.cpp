#include "examples/cenas/forma/contorno.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace cenas {

namespace {

// From the grain's own axes, in pixels, to the picture.
struct EIXOS {
  cv::Point2d centro;
  double cosseno;
  double seno;

  explicit EIXOS(const GRAO& g)
      : centro(g.coluna, g.linha),
        cosseno(std::cos(g.ang * std::numbers::pi / 180)),
        seno(std::sin(g.ang * std::numbers::pi / 180)) {}

  cv::Point2d foto(double x, double y) const {
    return centro + cv::Point2d(x * cosseno - y * seno, x * seno + y * cosseno);
  }
};

// Sides enough that no arc of this radius leaves its chord by more than 0.001 pixel; of eighths of
// a turn, where squares have their corners.
int lados(double raio) {
  const double n = std::numbers::pi * std::sqrt(raio / 0.002);
  return std::max(32, 8 * static_cast<int>(std::ceil(n / 8)));
}

// The outline whose point at each angle is `ponto(angle)`, for half sizes 1.
template <class PONTO>
CONTORNO curva(const GRAO& g, PONTO ponto) {
  const EIXOS eixos(g);
  const int n = lados(std::max(g.d1, g.d2) / 2);
  CONTORNO v;
  for (int i = 0; i < n; ++i) {
    const cv::Point2d p = ponto(volta * i / n);
    v.push_back(eixos.foto(p.x * g.d1 / 2, p.y * g.d2 / 2));
  }
  return v;
}

CONTORNO elipse(const GRAO& g) {
  const CONTORNO v = curva(g, [](double a) { return cv::Point2d(std::cos(a), std::sin(a)); });
  return escalado(v, g, std::sqrt(std::numbers::pi * g.d1 * g.d2 / 4 / area(v)));
}

CONTORNO retangulo(const GRAO& g) {
  const EIXOS eixos(g);
  const double x = g.d1 / 2;
  const double y = g.d2 / 2;
  return {eixos.foto(-x, -y), eixos.foto(x, -y), eixos.foto(x, y), eixos.foto(-x, y)};
}

CONTORNO superelipse(const GRAO& g, double expoente) {
  const auto potencia = [&](double x) {
    return std::copysign(std::pow(std::abs(x), 2 / expoente), x);
  };
  return curva(g,
               [&](double a) { return cv::Point2d(potencia(std::cos(a)), potencia(std::sin(a))); });
}

CONTORNO ondulado(const GRAO& g, double parte, SORTEIO& s) {
  std::array<cv::Point2d, 5> ondas;  // of 2 to 6 to a turn, the short ones weaker
  double soma = 0;
  for (cv::Point2d& o : ondas) {
    o = {s.uniforme(0.2, 1) / static_cast<double>(2 + (&o - ondas.data())), s.uniforme(0, volta)};
    soma += o.x;
  }
  return curva(g, [&](double a) {
    double raio = 1;
    for (std::size_t k = 0; k < ondas.size(); ++k) {
      raio +=
          1.6 * parte / soma * ondas[k].x * std::cos(static_cast<double>(k + 2) * a + ondas[k].y);
    }
    const cv::Point2d p(std::cos(a), std::sin(a));
    const bool reta = g.forma == 'q' || g.forma == 'r';
    return raio / (reta ? std::max(std::abs(p.x), std::abs(p.y)) : 1) * p;
  });
}

// Corners at uneven angles upon the ellipse, so that it stays convex.
CONTORNO pedra(const GRAO& g, SORTEIO& s) {
  const EIXOS eixos(g);
  const int n = static_cast<int>(s.uniforme(8, 14));
  const double inicio = s.uniforme(0, volta);
  CONTORNO v;
  for (int i = 0; i < n; ++i) {
    const double a = inicio + volta * (i + s.uniforme(-0.3, 0.3)) / n;
    v.push_back(eixos.foto(std::cos(a) * g.d1 / 2, std::sin(a) * g.d2 / 2));
  }
  return v;
}

CONTORNO oblongo(const GRAO& g) {
  const double reto = std::max(g.d1 - g.d2, 0.0) / 2;  // half length of the straight sides
  return curva(g, [&](double a) {
    const double x = std::cos(a) * g.d2 / 2;
    return cv::Point2d((x + std::copysign(reto, x)) * 2 / g.d1, std::sin(a));
  });
}

}  // namespace

CONTORNO contornoDe(const GRAO& g) {
  return g.forma == 'q' || g.forma == 'r' ? retangulo(g) : elipse(g);
}

CONTORNO contornoDe(const GRAO& g, FEITIO feitio, double irregular, SORTEIO& s) {
  switch (feitio) {
    case FEITIO::superelipse:
      return superelipse(g, irregular);
    case FEITIO::ondulado:
      return ondulado(g, irregular, s);
    case FEITIO::pedra:
      return pedra(g, s);
    case FEITIO::oblongo:
      return oblongo(g);
    default:
      return contornoDe(g);
  }
}

CONTORNO escalado(const CONTORNO& contorno, const GRAO& g, double fator) {
  const cv::Point2d centro(g.coluna, g.linha);
  CONTORNO v;
  v.reserve(contorno.size());
  for (const cv::Point2d& p : contorno) v.push_back(centro + fator * (p - centro));
  return v;
}

CONTORNO deslocado(CONTORNO contorno, cv::Point2d quanto) {
  for (cv::Point2d& p : contorno) p += quanto;
  return contorno;
}

}  // namespace cenas
