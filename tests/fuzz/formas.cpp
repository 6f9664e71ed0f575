// Shapes of any sizes and angles: masks, outlines and kernels are odd, square and point-symmetric,
// and an outline is the inner boundary of its mask.

#include "kernels/formas.h"
#include "apoio/erros.h"

#include <algorithm>
#include <cmath>

#include "confere.h"
#include "entrada.h"
#include "kernels/normaliza.h"
#include "pim/converte.h"

namespace {

using BYTES = cv::Mat_<unsigned char>;

constexpr double raiz2 = 1.4142135623730951;
constexpr double maiorPequena = 200;  // larger shapes are legal, up to 256 MiB each

template <class T>
bool simetrica(const cv::Mat_<T>& img) {
  for (int l = 0; l < img.rows; ++l) {
    for (int c = 0; c < img.cols; ++c) {
      if (img(l, c) != img(img.rows - 1 - l, img.cols - 1 - c)) return false;
    }
  }
  return true;
}

void mascara(const MAXLOCAL& m, BYTES& out) {
  mascaraMaxLocal(m, out);
}

void contorno(const MAXLOCAL& m, BYTES& out) {
  if (m.forma == 'c') contornoCirculo(out, m.d1);
  if (m.forma == 'q') contornoQuadrado(out, m.d1, m.ang);
  if (m.forma == 'r') contornoRetangulo(out, m.d1, m.d2, m.ang);
  if (m.forma == 'e') contornoElipse(out, m.d1, m.d2, m.ang);
}

void kernel(const MAXLOCAL& m, cv::Mat_<float>& out) {
  if (m.forma == 'c') kernelCirculo(out, m.d1);
  if (m.forma == 'q') kernelQuadrado(out, m.d1, m.ang);
  if (m.forma == 'r') kernelRetangulo(out, m.d1, m.d2, m.ang);
  if (m.forma == 'e') kernelElipse(out, m.d1, m.d2, m.ang);
}

bool temDois(char forma) {
  return forma == 'r' || forma == 'e';
}

// The side that the mask must have, 0 for none; `erro` when it must be refused.
double ladoEsperado(const MAXLOCAL& m, bool& erro) {
  const double maior = temDois(m.forma) ? std::max(m.d1, m.d2) : m.d1;
  const bool finita = std::isfinite(m.d1) && (!temDois(m.forma) || std::isfinite(m.d2));
  const double fator = m.forma == 'q' || m.forma == 'r' ? raiz2 : 1;
  double lado = 2 * std::ceil((maior * fator - 1) / 2) + (m.forma == 'c' ? 3 : 1);
  erro = !finita || lado > maiorLado;
  if (m.forma == 'c') {
    constexpr int pequenos[] = {0, 3, 5, 5, 7};
    const double classe = std::nearbyint(m.d1);
    if (classe <= 4) lado = classe < 1 ? 0 : pequenos[static_cast<int>(classe)];
  }
  return std::max(lado, 0.0);
}

bool naBorda(const BYTES& cheia, int l, int c) {
  const cv::Rect dentro(0, 0, cheia.cols, cheia.rows);
  for (const cv::Point viz : {cv::Point(c, l - 1), {c, l + 1}, {c - 1, l}, {c + 1, l}}) {
    if (!dentro.contains(viz) || cheia(viz) != 0) return true;
  }
  return false;
}

void confereContorno(const BYTES& cheia, const BYTES& linha) {
  confere(linha.size() == cheia.size(), "lado do contorno");
  for (int l = 0; l < cheia.rows; ++l) {
    for (int c = 0; c < cheia.cols; ++c) {
      const bool esperado = cheia(l, c) == 0 && naBorda(cheia, l, c);
      confere(linha(l, c) == (esperado ? 0 : 255), "contorno");
    }
  }
}

void confereMascara(const MAXLOCAL& m) {
  bool recusada = false;
  const double lado = ladoEsperado(m, recusada);
  BYTES cheia;
  BYTES linha;
  confere(erroDe([&] { mascara(m, cheia); }).empty() != recusada, "recusa da mascara");
  if (recusada) return;
  confere(cheia.rows == cheia.cols && cheia.rows == static_cast<int>(lado), "lado da mascara");
  confere(simetrica(cheia), "simetria da mascara");
  for (const unsigned char x : cheia) confere(x == 0 || x == 255, "valor da mascara");
  confere(erroDe([&] { contorno(m, linha); }).empty() != cheia.empty(), "contorno sem mascara");
  if (!cheia.empty()) confereContorno(cheia, linha);
}

void confereKernel(const MAXLOCAL& m) {
  cv::Mat_<float> K;
  if (!erroDe([&] { kernel(m, K); }).empty()) return;
  confere(K.rows == K.cols && K.rows % 2 == 1, "lado do kernel");
  confere(simetrica(K), "simetria do kernel");
  double positivos = 0;
  double negativos = 0;
  for (const float x : K) (x > 0 ? positivos : negativos) += static_cast<double>(x);
  confere(std::abs(positivos - 1) < 1e-4 && std::abs(negativos + 1) < 1e-4, "soma do kernel");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t n) {
  ENTRADA entrada{bytes, n};
  MAXLOCAL m;
  m.forma = "cqre"[entrada.byte() % 4];
  m.d1 = entrada.real();
  m.d2 = entrada.real();
  m.ang = entrada.real();
  const double maior = temDois(m.forma) ? std::max(m.d1, m.d2) : m.d1;
  const bool legalEGrande = maior > maiorPequena && maior < maiorLado + 2.0;
  if (legalEGrande) return -1;
  confereMascara(m);
  confereKernel(m);
  return 0;
}
