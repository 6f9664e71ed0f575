// The fast correlation against the plain one and against direct sums in double.

#include "detect/correlacao.h"
#include "apoio/erros.h"

#include <algorithm>
#include <cmath>

#include "confere.h"
#include "entrada.h"
#include "kernels/normaliza.h"
#include "motor/termos/regioes.h"
#include "pim/converte.h"
#include "referencia/correlacao.h"

namespace {

// Some wider or higher than the blocks that the fast form works in (256 columns, 64 rows).
cv::Size tamanho(ENTRADA& e) {
  const int tipo = e.byte() % 4;
  if (tipo == 0) return {e.inteiro(1, 300), e.inteiro(1, 6)};
  if (tipo == 1) return {e.inteiro(1, 8), e.inteiro(1, 150)};
  return {e.inteiro(1, 32), e.inteiro(1, 32)};
}

// Grey levels that repeat a few bytes or look random; then perhaps other numbers.
cv::Mat_<float> imagem(ENTRADA& e) {
  const cv::Size tam = tamanho(e);
  const int tipo = e.byte() % 8;
  auto estado = static_cast<unsigned>(e.inteiro(0, 65535));
  const unsigned periodo = 1U + e.byte() % 32U;
  cv::Mat_<unsigned char> grey(tam);
  std::vector<unsigned char> padrao(periodo);
  for (unsigned char& x : padrao) x = e.byte();
  for (int i = 0; i < static_cast<int>(grey.total()); ++i) {
    estado = estado * 1664525U + 1013904223U;
    const unsigned char sorteado = static_cast<unsigned char>(estado >> 24U);
    const bool repete = tipo % 2 == 0;
    grey(i / tam.width, i % tam.width) =
        repete ? padrao[static_cast<unsigned>(i) % periodo] : sorteado;
  }
  cv::Mat_<float> img;
  pim::converte(grey, img, 1 / 255.0, 0.0);
  if (tipo >= 6) img = (img - e.real()) * e.real();
  return img;
}

void desenha(MASCARA& m) {
  if (m.forma == 'c') kernelCirculo(m.kernel, m.d1);
  if (m.forma == 'q') kernelQuadrado(m.kernel, m.d1, m.ang);
  if (m.forma == 'r') kernelRetangulo(m.kernel, m.d1, m.d2, m.ang);
  if (m.forma == 'e') kernelElipse(m.kernel, m.d1, m.d2, m.ang);
}

// Any three-valued pattern, or any weights.
void sorteia(MASCARA& m, ENTRADA& e) {
  const int n = 1 + 2 * e.inteiro(0, 4);
  const bool pesos = e.byte() > 220;
  m.kernel.create(n, n);
  for (float& x : m.kernel) x = static_cast<float>(e.byte() % 3) - 1;
  if (!pesos) return NegPosUm(m.kernel);
  for (float& x : m.kernel) x += static_cast<float>(e.byte()) / 256;
}

MASCARA kernel(ENTRADA& e) {
  MASCARA m;
  const unsigned char tipo = e.byte();
  m.forma = "cqrex"[tipo % 5];
  const double unidade = tipo < 225 ? 8 : 1;  // one kernel in eight is large
  m.sPir = e.inteiro(-1, 3);
  m.ang = e.inteiro(0, 180);
  m.d1 = e.inteiro(4, 120) / unidade;
  m.d2 = e.inteiro(4, 120) / unidade;
  if (m.forma == 'x') {
    sorteia(m, e);
  } else {
    desenha(m);
  }
  return m;
}

double somaDireta(const cv::Mat_<float>& img, const cv::Mat_<float>& K, int l, int c) {
  double soma = 0;
  for (int i = 0; i < K.rows; ++i) {
    for (int j = 0; j < K.cols; ++j) {
      const int y = std::clamp(l + i - K.rows / 2, 0, img.rows - 1);
      const int x = std::clamp(c + j - K.cols / 2, 0, img.cols - 1);
      soma += static_cast<double>(K(i, j)) * static_cast<double>(img(y, x));
    }
  }
  return soma;
}

double maiorAbsoluto(const cv::Mat_<float>& img) {
  double maior = 0;
  for (const float x : img) maior = std::max(maior, std::abs(static_cast<double>(x)));
  return maior;
}

bool perto(double a, double b, double tolerancia) {
  return a == b || std::abs(a - b) <= tolerancia;
}

// The best value at (l, c) as its definition says, and that of the kernel chosen.
void confereSomas(const cv::Mat_<float>& img, const std::vector<MASCARA>& kernels, int L, int l,
                  int c, double melhor, int qual) {
  double maior = -1;
  double doEscolhido = -1;
  for (int k = 0; k < static_cast<int>(kernels.size()); ++k) {
    const MASCARA& m = kernels[static_cast<std::size_t>(k)];
    if (m.sPir < L) continue;
    const double x = somaDireta(img, m.kernel, l, c);
    maior = std::max(maior, x);
    if (k == qual) doEscolhido = x;
  }
  constexpr double tolerancia = 1e-6;
  confere(
      perto(melhor, maior, tolerancia),
      cv::format("longe da soma direta: %.9g e %.9g, nivel %d (%d, %d)", melhor, maior, L, l, c));
  confere(perto(doEscolhido, maior, tolerancia), "outro kernel e' melhor");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t n) {
  ENTRADA e{bytes, n};
  PIRAMIDE piramide;
  constroiPiramide(piramide, imagem(e), 3);
  std::vector<MASCARA> kernels;
  const int quantos = e.inteiro(1, 4);
  for (int k = 0; k < quantos; ++k) {
    if (!erroDe([&] { kernels.push_back(kernel(e)); }).empty()) return -1;
  }
  const int ultimo = quantos - 1;
  MELHORCORREL melhor;
  MELHORCORREL melhorSimples;
  MELHORKERNEL qual;
  MELHORKERNEL qualSimples;
  correlaGrupo(piramide, kernels, 0, ultimo, melhor, qual);
  referencia::correlaGrupo(piramide, kernels, 0, ultimo, melhorSimples, qualSimples);
  const bool rapida = std::all_of(kernels.begin(), kernels.end(), [](const MASCARA& m) {
    return motor::regioesDoKernel(m.kernel).has_value();
  });
  for (int L = 0; L < static_cast<int>(piramide.size()); ++L) {
    const auto i = static_cast<std::size_t>(L);
    const double maior = maiorAbsoluto(piramide[i]);
    // The plain form adds in float, in an order of its own; other kernels go through it anyway.
    const double tolerancia = rapida ? 5e-6 * std::max(1.0, maior) : 0;
    const int passo = 1 + static_cast<int>(piramide[i].total()) / 24;
    for (int p = 0; p < static_cast<int>(piramide[i].total()); ++p) {
      const int l = p / piramide[i].cols;
      const int c = p % piramide[i].cols;
      const float x = melhor[i](l, c);
      confere(qual[i](l, c) >= 0 || x == -1, "valor sem kernel");
      if (rapida && maior <= 1 && p % passo == 0) {
        confereSomas(piramide[i], kernels, L, l, c, x, qual[i](l, c));
      }
      confere(perto(x, melhorSimples[i](l, c), tolerancia),
              cv::format("longe da forma simples: %.9g e %.9g, nivel %d (%d, %d)", x,
                         melhorSimples[i](l, c), L, l, c));
    }
  }
  return 0;
}
