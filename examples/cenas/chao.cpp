#include "examples/cenas/chao.h"

#include <cmath>
#include <numbers>

#include "examples/cenas/textura.h"

namespace cenas {

namespace {

// Threads over and under each other: ribs along both axes, one of them on top by turns.
double trama(double l, double c, double passo) {
  const double x = c / passo;
  const double y = l / passo;
  const bool deitado = (static_cast<int>(std::floor(x)) + static_cast<int>(std::floor(y))) % 2 == 0;
  const double aoLongo = deitado ? x : y;
  const double atraves = deitado ? y : x;
  return 0.7 * std::abs(std::sin(std::numbers::pi * atraves)) +
         0.3 * std::abs(std::sin(std::numbers::pi * aoLongo)) - 0.6;
}

// A dark line 1.2 pixel wide at every multiple of `passo`.
double linha(double x, double passo) {
  const double longe = std::abs(x - passo * std::round(x / passo));
  return std::clamp(1.1 - longe, 0.0, 1.0);
}

struct DESENHO {
  double angulo;
  double passoTrama;
  double passoPauta;
  TEXTURA fina, media, larga, onda;
};

DESENHO sorteia(SORTEIO& s) {
  const double angulo = s.uniforme(-0.15, 0.15);
  const double passoTrama = s.uniforme(5, 9);
  const double passoPauta = s.uniforme(22, 40);
  const auto semente = [&] { return s.bits(); };
  return {angulo,         passoTrama,      passoPauta,     {2, semente()},
          {8, semente()}, {90, semente()}, {60, semente()}};
}

double brilho(const CHAO& chao, const DESENHO& d, int l, int c) {
  double x =
      chao.fina * d.fina.em(l, c) + chao.media * d.media.em(l, c) + chao.larga * d.larga.em(l, c);
  const double y = l * std::cos(d.angulo) + c * std::sin(d.angulo);
  const double z = c * std::cos(d.angulo) - l * std::sin(d.angulo);
  if (chao.trama > 0) x += chao.trama * trama(y, z, d.passoTrama);
  x -= chao.pauta * linha(y, d.passoPauta);
  x -= chao.quadricula * std::max(linha(y, d.passoPauta), linha(z, d.passoPauta));
  if (chao.fibroso > 0) {
    const double fase = (y + 18 * d.onda.em(l, c)) / 11;
    x += chao.fibroso * std::sin(volta * fase) * (0.6 + 0.4 * d.media.em(z, y));
  }
  return chao.claro * (1 + x);
}

}  // namespace

cv::Mat_<float> pintaChao(const CHAO& chao, cv::Size tamanho, SORTEIO& s) {
  const DESENHO d = sorteia(s);
  cv::Mat_<float> imagem(tamanho);
  for (int l = 0; l < imagem.rows; ++l) {
    for (int c = 0; c < imagem.cols; ++c) {
      imagem(l, c) = static_cast<float>(brilho(chao, d, l, c));
    }
  }
  return imagem;
}

}  // namespace cenas
