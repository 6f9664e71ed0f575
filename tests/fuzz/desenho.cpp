// The drawing primitives with any centre, size, width and angle: the same on bytes and floats, cut
// at the edge of the image, and covering what their definition says.

#include "pim/desenho.h"

#include <algorithm>
#include <cmath>

#include "confere.h"
#include "entrada.h"

namespace {

struct PEDIDO {
  int forma;  // 0 circle, 1 rectangle, 2 ellipse
  int l;
  int c;
  int tam1;
  int tam2;
  int espessura;
  double ang;
};

template <class T>
void desenha(cv::Mat_<T>& img, const PEDIDO& p, int espessura) {
  constexpr T cor = 1;
  if (p.forma == 0) pim::circulo(img, p.l, p.c, p.tam1, cor, espessura);
  if (p.forma == 1) pim::rotRetang(img, p.l, p.c, p.tam1, p.tam2, cor, espessura, p.ang);
  if (p.forma == 2) pim::elipse(img, p.l, p.c, p.tam1, p.tam2, cor, espessura, p.ang);
}

cv::Mat_<unsigned char> desenhada(const PEDIDO& p, cv::Size tamanho, int espessura) {
  cv::Mat_<unsigned char> img(tamanho, 0);
  desenha(img, p, espessura);
  return img;
}

// How far inside the edge a pixel lies (negative: outside), as a share of the size.
double folga(const PEDIDO& p, int l, int c) {
  const double rad = std::fmod(p.ang, 360) * (3.141592653589793 / 180);
  const double dl = static_cast<double>(l) - p.l;
  const double dc = static_cast<double>(c) - p.c;
  const double u = dc * std::cos(rad) + dl * std::sin(rad);
  const double v = dl * std::cos(rad) - dc * std::sin(rad);
  if (p.forma == 0) return 1 - std::hypot(dl, dc) / p.tam1;
  if (p.forma == 2) return 1 - std::hypot(u / p.tam1, v / p.tam2);
  return std::min(1 - std::abs(u) / (p.tam1 + 0.5), 1 - std::abs(v) / (p.tam2 + 0.5));
}

void confereDefinicao(const PEDIDO& p, const cv::Mat_<unsigned char>& cheia) {
  const bool vazia = p.tam1 < 0 || (p.forma != 0 && p.tam2 < 0);
  if (!std::isfinite(p.ang) || p.tam1 == 0 || p.tam2 == 0) return;  // no measure of distance
  constexpr double incerta = 1e-6;
  for (int l = 0; l < cheia.rows; ++l) {
    for (int c = 0; c < cheia.cols; ++c) {
      const double x = vazia ? -1 : folga(p, l, c);
      if (std::abs(x) > incerta) confere((cheia(l, c) != 0) == (x > 0), "pixel da forma");
    }
  }
}

// On an image with a margin all around, the middle shows the same.
void confereRecorte(PEDIDO p, const cv::Mat_<unsigned char>& img) {
  constexpr int margem = 7;
  p.l += margem;
  p.c += margem;
  const cv::Size tamanho(img.cols + 2 * margem, img.rows + 2 * margem);
  const cv::Mat_<unsigned char> maior = desenhada(p, tamanho, p.espessura);
  const cv::Mat_<unsigned char> meio = maior(cv::Rect(margem, margem, img.cols, img.rows));
  confere(cv::norm(meio, img, cv::NORM_INF) == 0, "recorte");
}

// Beyond 2^26 the squares of distances are no longer exact in double, and an edge may lie to the
// side of a pixel where its definition doesn't put it.
bool grande(const PEDIDO& p) {
  constexpr double longe = 1 << 25;
  const auto demais = [](int x) { return std::abs(static_cast<double>(x)) > longe; };
  return demais(p.l) || demais(p.c) || demais(p.tam1) || demais(p.tam2);
}

void confereSimetria(PEDIDO p) {
  constexpr int lado = 25;
  p.l = p.c = lado / 2;
  const cv::Mat_<unsigned char> img = desenhada(p, {lado, lado}, p.espessura);
  for (int l = 0; l < lado; ++l) {
    for (int c = 0; c < lado; ++c) {
      confere(img(l, c) == img(lado - 1 - l, lado - 1 - c), "simetria");
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t n) {
  ENTRADA e{bytes, n};
  const cv::Size tamanho{e.inteiro(1, 40), e.inteiro(1, 40)};
  PEDIDO p{};
  p.forma = e.inteiro(0, 2);
  p.l = e.qualquerInteiro();
  p.c = e.qualquerInteiro();
  p.tam1 = e.qualquerInteiro();
  p.tam2 = e.qualquerInteiro();
  p.espessura = e.byte() % 2 == 0 ? -1 : e.qualquerInteiro();
  p.ang = e.real();

  const cv::Mat_<unsigned char> img = desenhada(p, tamanho, p.espessura);
  const cv::Mat_<unsigned char> cheia = desenhada(p, tamanho, -1);
  cv::Mat_<float> reais(tamanho, 0.0F);
  desenha(reais, p, p.espessura);
  cv::Mat_<unsigned char> deReais;
  reais.convertTo(deReais, CV_8U);
  confere(cv::norm(img, deReais, cv::NORM_INF) == 0, "bytes e reais");
  if (grande(p)) return 0;
  confere(cv::countNonZero(img & ~(cheia * 255)) == 0, "contorno fora da forma");
  confereDefinicao(p, cheia);
  confereRecorte(p, img);
  confereSimetria(p);
  return 0;
}
