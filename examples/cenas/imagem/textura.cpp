#include "examples/cenas/imagem/textura.h"

#include <cmath>

namespace cenas {

namespace {

double suave(double t) {
  return t * t * (3 - 2 * t);
}

double no(std::uint64_t semente, int l, int c) {
  const std::uint64_t lugar =
      (static_cast<std::uint64_t>(static_cast<unsigned>(l)) << 32U) | static_cast<unsigned>(c);
  return 2 * SORTEIO::fracao(SORTEIO::mistura(semente + SORTEIO::mistura(lugar + 1))) - 1;
}

}  // namespace

double TEXTURA::em(double l, double c) const {
  const double y = std::floor(l / passo);
  const double x = std::floor(c / passo);
  const int i = static_cast<int>(y);
  const int j = static_cast<int>(x);
  const double wl = suave(l / passo - y);
  const double wc = suave(c / passo - x);
  const double acima = no(semente, i, j) * (1 - wc) + no(semente, i, j + 1) * wc;
  const double abaixo = no(semente, i + 1, j) * (1 - wc) + no(semente, i + 1, j + 1) * wc;
  return acima * (1 - wl) + abaixo * wl;
}

double nuvem(double passo, std::uint64_t semente, double l, double c) {
  const double y = 0.8 * l + 0.6 * c;
  const double x = 0.8 * c - 0.6 * l;
  return 0.6 * TEXTURA{passo, semente}.em(y, x) + 0.4 * TEXTURA{0.6 * passo, ~semente}.em(l, c);
}

}  // namespace cenas
