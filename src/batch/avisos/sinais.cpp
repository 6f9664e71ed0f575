#include "batch/avisos/sinais.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <opencv2/imgproc.hpp>

#include "measure/contorno.h"

namespace batch {
namespace {

// The value that 0.3 % of the pixels exceed: single ones are noise.
double quaseMaior(const cv::Mat_<float>& m) {
  std::vector<float> v(m.begin(), m.end());
  const auto k = v.begin() + static_cast<std::ptrdiff_t>(v.size() * 997 / 1000);
  std::nth_element(v.begin(), k, v.end());
  return *k;
}

// Compares squares of 9 by 9 pixels with the ring around them, of 17 by 17, where grains of `lado`
// are 12 pixels wide. Pictures too small for that say nothing.
void compara(const cv::Mat_<unsigned char>& vista, double lado, SINAIS& s) {
  constexpr int nucleo = 9;
  constexpr int todo = 17;
  const double vezes = std::min(1.0, 12 / lado);
  cv::Mat_<unsigned char> menor;
  const cv::Size tamanho(cvRound(vista.cols * vezes), cvRound(vista.rows * vezes));
  if (std::min(tamanho.width, tamanho.height) < 2 * todo) return;
  cv::resize(vista, menor, tamanho, 0, 0, cv::INTER_AREA);
  cv::Mat_<float> dentro;
  cv::Mat_<float> tudo;
  cv::boxFilter(menor, dentro, CV_32F, {nucleo, nucleo}, {-1, -1}, true, cv::BORDER_REPLICATE);
  cv::boxFilter(menor, tudo, CV_32F, {todo, todo}, {-1, -1}, true, cv::BORDER_REPLICATE);
  constexpr double anel = todo * todo - nucleo * nucleo;
  cv::Mat_<float> diferenca;
  cv::addWeighted(tudo, todo * todo / anel / 255, dentro, -(nucleo * nucleo / anel + 1) / 255, 0,
                  diferenca);
  s.escuros = std::max(s.escuros, quaseMaior(diferenca));
  diferenca *= -1;
  s.claros = std::max(s.claros, quaseMaior(diferenca));
}

// Grey at a place between pixels, 0 to 1.
double cinza(const cv::Mat_<unsigned char>& vista, double x, double y) {
  x = std::clamp(x, 0.0, vista.cols - 1.001);
  y = std::clamp(y, 0.0, vista.rows - 1.001);
  const int c = static_cast<int>(x);
  const int l = static_cast<int>(y);
  const double u = x - c;
  const double v = y - l;
  const int c1 = std::min(c + 1, vista.cols - 1);
  const int l1 = std::min(l + 1, vista.rows - 1);
  return ((1 - v) * ((1 - u) * vista(l, c) + u * vista(l, c1)) +
          v * ((1 - u) * vista(l1, c) + u * vista(l1, c1))) /
         255;
}

double mediana(std::vector<double>& v) {
  const auto meio = v.begin() + static_cast<std::ptrdiff_t>(v.size() / 2);
  std::nth_element(v.begin(), meio, v.end());
  return *meio;
}

// The steepest rise that a step of height h blurred by a Gaussian has is h / (sigma sqrt(2 pi)),
// and its width at half maximum 2.355 sigma. Rises are taken over two pixels, from the centre
// outwards.
double desfoqueDo(const cv::Mat_<unsigned char>& vista, const measure::GRAO& g) {
  const double degrau = g.medido ? g.medido->contraste : static_cast<double>(g.correl);
  std::vector<double> subidas;
  const std::vector<measure::PONTO> v = measure::contorno(g.figura, 0.25);
  for (std::size_t i = 0; i < v.size(); ++i) {
    // Middles of sides: a corner is no edge.
    const measure::PONTO& outro = v[(i + 1) % v.size()];
    const double x = (v[i].x + outro.x) / 2;
    const double y = (v[i].y + outro.y) / 2;
    const double longe = std::hypot(x - g.figura.c, y - g.figura.l);
    const double dx = (x - g.figura.c) / longe;
    const double dy = (y - g.figura.l) / longe;
    subidas.push_back((cinza(vista, x + dx, y + dy) - cinza(vista, x - dx, y - dy)) / 2);
  }
  const double subida = mediana(subidas);
  if (!(subida > 0)) return 0;
  const double largura = 2.355 / 2.507 * degrau / subida;
  // The two pixels blur too: by a variance of 4/12.
  return std::sqrt(std::max(largura * largura - 2.355 * 2.355 / 3, 0.0));
}

}  // namespace

SINAIS sinais(const cv::Mat_<unsigned char>& vista, const std::vector<measure::GRAO>& graos,
              const ALCANCE& a) {
  SINAIS s;
  if (a.menor > 0) {
    for (const double parte : {0.0, 1.0 / 3, 2.0 / 3, 1.0}) {
      compara(vista, a.menor * std::pow(a.maior / a.menor, parte), s);
    }
  }
  std::vector<double> larguras;
  const std::size_t passo = graos.size() / 200 + 1;
  for (std::size_t i = 0; i < graos.size(); i += passo) {
    if (graos[i].tocaBorda) continue;
    const double largura = desfoqueDo(vista, graos[i]);
    if (largura > 0) larguras.push_back(largura);
  }
  if (!larguras.empty()) s.desfoque = mediana(larguras);
  return s;
}

}  // namespace batch
