#include "examples/cenas/imagem/chao.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "examples/cenas/imagem/textura.h"

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
  std::uint64_t fina, media, larga, onda;
};

DESENHO sorteia(SORTEIO& s) {
  const double angulo = s.uniforme(-0.15, 0.15);
  const double passoTrama = s.uniforme(5, 9);
  const double passoPauta = s.uniforme(22, 40);
  const std::uint64_t fina = s.bits();
  const std::uint64_t media = s.bits();
  const std::uint64_t larga = s.bits();
  const std::uint64_t onda = s.bits();
  return {angulo, passoTrama, passoPauta, fina, media, larga, onda};
}

// Streaks of uneven length and strength that bend together.
double fibras(std::uint64_t semente, double y, double z) {
  const double dobra = 30 * nuvem(70, ~semente, y, z);
  return nuvem(5, semente, y + dobra, z / 9) * (1 + nuvem(40, semente ^ 0x7U, y, z));
}

double brilho(const CHAO& chao, const DESENHO& d, int l, int c) {
  double x = chao.fina * TEXTURA{2, d.fina}.em(l, c) + 1.5 * chao.media * nuvem(9, d.media, l, c) +
             1.5 * chao.larga * nuvem(110, d.larga, l, c);
  const double y = l * std::cos(d.angulo) + c * std::sin(d.angulo);
  const double z = c * std::cos(d.angulo) - l * std::sin(d.angulo);
  if (chao.trama > 0) x += chao.trama * trama(y, z, d.passoTrama);
  x -= chao.pauta * linha(y, d.passoPauta);
  x -= chao.quadricula * std::max(linha(y, d.passoPauta), linha(z, d.passoPauta));
  if (chao.fibroso > 0) x += 2 * chao.fibroso * fibras(d.onda, y, z);
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
