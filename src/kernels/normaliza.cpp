#include "kernels/normaliza.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>
#include <string_view>

#include "kernels/formas.h"
#include "pim/converte.h"
#include "pim/desenho.h"
#include "pim/erro.h"

namespace {

constexpr float anel = 1.0F;
constexpr float nucleo = -1.0F;

// The kernels of discs of 1 to 4 pixels: '+' ring, '-' core, '.' zero.
constexpr std::array<std::string_view, 4> kernelsPequenos = {
    "+++"
    "+-+"
    "+++",

    "..+.."
    ".+-+."
    "+---+"
    ".+-+."
    "..+..",

    "......."
    ".+++++."
    ".+---+."
    ".+---+."
    ".+---+."
    ".+++++."
    ".......",

    "........."
    "....+...."
    "...+-+..."
    "..+---+.."
    ".+-----+."
    "..+---+.."
    "...+-+..."
    "....+...."
    "........."};

cv::Mat_<float> kernelPequeno(std::string_view desenho) {
  const int n = pim::arredonda(std::sqrt(static_cast<double>(desenho.size())));
  cv::Mat_<float> K(n, n);
  for (int i = 0; i < n * n; ++i) {
    const char simbolo = desenho[static_cast<std::size_t>(i)];
    K(i / n, i % n) = simbolo == '+' ? anel : simbolo == '-' ? nucleo : 0.0F;
  }
  return K;
}

}  // namespace

int meioNucleo(double d) {
  return pim::trunca(d * 0.5);
}

int meioAnel(double d) {
  return pim::trunca(d * std::numbers::sqrt2 * 0.5);
}

int exigeLadoDoKernel(char forma, double d1, double d2) {
  return exigeLado(ladoDoKernel(forma, d1, d2), forma, d1, d2, maiorLadoKernel);
}

void recusaKernel() {
  pim::erro("Erro: NegPosUm divisao zero");
}

double ladoDoKernel(char forma, double d1, double d2) {
  if (forma == 'c' || forma == 'q') d2 = d1;
  if (!std::isfinite(d1) || !std::isfinite(d2)) return std::numeric_limits<double>::infinity();
  const double maior = std::max(d1, d2);
  switch (forma) {
    case 'c':
    case 'e':
      return ladoImpar(maior * std::numbers::sqrt2, 2);
    default:
      return ladoImpar(2 * maior, 0);
  }
}

void NegPosUm(cv::Mat_<float>& K) {
  double positivos = 0;
  double negativos = 0;
  for (int l = 0; l < K.rows; ++l) {
    const float* linha = K[l];
    for (int c = 0; c < K.cols; ++c) {
      (linha[c] > 0 ? positivos : negativos) += std::abs(static_cast<double>(linha[c]));
    }
  }
  if (!(positivos > 0) || !(negativos > 0)) recusaKernel();
  for (int l = 0; l < K.rows; ++l) {
    float* linha = K[l];
    for (int c = 0; c < K.cols; ++c) {
      linha[c] = static_cast<float>(linha[c] / (linha[c] > 0 ? positivos : negativos));
    }
  }
}

void kernelCirculo(cv::Mat_<float>& K, double d) {
  const int n = exigeLadoDoKernel('c', d, d);
  const int classe = pim::arredonda(d);
  if (classe > 4) {
    prepara(K, n, 0.0F);
    pim::circulo(K, n / 2, n / 2, meioAnel(d), anel, -1);
    pim::circulo(K, n / 2, n / 2, meioNucleo(d), nucleo, -1);
  } else if (classe >= 1) {
    K = kernelPequeno(kernelsPequenos[static_cast<std::size_t>(classe - 1)]);
  }
  NegPosUm(K);
}

void kernelQuadrado(cv::Mat_<float>& K, double d, double ang) {
  const int n = exigeLadoDoKernel('q', d, d);
  prepara(K, n, 0.0F);
  pim::rotRetang(K, n / 2, n / 2, meioAnel(d), meioAnel(d), anel, -1, ang);
  pim::rotRetang(K, n / 2, n / 2, meioNucleo(d), meioNucleo(d), nucleo, -1, ang);
  NegPosUm(K);
}

void kernelRetangulo(cv::Mat_<float>& K, double d1, double d2, double ang) {
  const int n = exigeLadoDoKernel('r', d1, d2);
  prepara(K, n, 0.0F);
  pim::rotRetang(K, n / 2, n / 2, meioAnel(d1), meioAnel(d2), anel, -1, ang);
  pim::rotRetang(K, n / 2, n / 2, meioNucleo(d1), meioNucleo(d2), nucleo, -1, ang);
  NegPosUm(K);
}

void kernelElipse(cv::Mat_<float>& K, double d1, double d2, double ang) {
  const int n = exigeLadoDoKernel('e', d1, d2);
  prepara(K, n, 0.0F);
  pim::elipse(K, n / 2, n / 2, meioAnel(d1), meioAnel(d2), anel, -1, ang);
  pim::elipse(K, n / 2, n / 2, meioNucleo(d1), meioNucleo(d2), nucleo, -1, ang);
  NegPosUm(K);
}
