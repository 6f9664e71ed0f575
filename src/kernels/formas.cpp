#include "kernels/formas.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string_view>

#include "pim/converte.h"
#include "pim/desenho.h"
#include "pim/erro.h"
#include "pim/img.h"

namespace {

constexpr unsigned char dentro = 0;
constexpr unsigned char fora = 255;
constexpr double raiz2 = 1.4142135623730951;

// The discs of 1 to 4 pixels, where a truncated radius would be too coarse. '#' is the shape.
constexpr std::array<std::string_view, 4> discosPequenos = {
    "..."
    ".#."
    "...",

    "....."
    "..#.."
    ".###."
    "..#.."
    ".....",

    "....."
    ".###."
    ".###."
    ".###."
    ".....",

    "......."
    "...#..."
    "..###.."
    ".#####."
    "..###.."
    "...#..."
    "......."};

void discoPequeno(cv::Mat_<unsigned char>& out, std::string_view desenho) {
  const int n = pim::arredonda(std::sqrt(static_cast<double>(desenho.size())));
  prepara(out, n, fora);
  for (int i = 0; i < n * n; ++i) {
    if (desenho[static_cast<std::size_t>(i)] == '#') out(i / n, i % n) = dentro;
  }
}

}  // namespace

int ladoImpar(double extensao, int margem, char forma, double d1, double d2, int maior) {
  const double lado = 2 * std::ceil((extensao - 1) / 2) + 1 + margem;
  const bool finita = std::isfinite(d1) && std::isfinite(d2);
  if (!finita || lado > maior) {
    pim::erro("Erro: Forma grande demais ", cv::format("%c %g %g", forma, d1, d2));
  }
  return pim::trunca(lado);
}

void mascaraCirculo(cv::Mat_<unsigned char>& out, double d) {
  const int n = ladoImpar(d, 2, 'c', d, d, maiorLado);
  const int classe = pim::arredonda(d);
  if (classe <= 0) return;
  if (classe <= 4) return discoPequeno(out, discosPequenos[static_cast<std::size_t>(classe - 1)]);
  prepara(out, n, fora);
  pim::circulo(out, n / 2, n / 2, pim::trunca(d * 0.5), dentro, -1);
}

void mascaraQuadrado(cv::Mat_<unsigned char>& out, double d, double ang) {
  const int n = ladoImpar(d * raiz2, 0, 'q', d, d, maiorLado);
  const int meio = pim::trunca(d * 0.5);
  prepara(out, n, fora);
  pim::rotRetang(out, n / 2, n / 2, meio, meio, dentro, -1, ang);
}

void mascaraRetangulo(cv::Mat_<unsigned char>& out, double d1, double d2, double ang) {
  const int n = ladoImpar(std::max(d1, d2) * raiz2, 0, 'r', d1, d2, maiorLado);
  prepara(out, n, fora);
  pim::rotRetang(out, n / 2, n / 2, pim::trunca(d1 * 0.5), pim::trunca(d2 * 0.5), dentro, -1, ang);
}

void mascaraElipse(cv::Mat_<unsigned char>& out, double d1, double d2, double ang) {
  const int n = ladoImpar(std::max(d1, d2), 0, 'e', d1, d2, maiorLado);
  prepara(out, n, fora);
  pim::elipse(out, n / 2, n / 2, pim::trunca(d1 * 0.5), pim::trunca(d2 * 0.5), dentro, -1, ang);
}

void contornoInterno(cv::Mat_<unsigned char> imagem, cv::Mat_<unsigned char>& out) {
  const IMG_<unsigned char> cheia(imagem, fora);
  out.create(imagem.size());
  out.setTo(fora);
  for (int l = 0; l < imagem.rows; ++l) {
    for (int c = 0; c < imagem.cols; ++c) {
      if (imagem(l, c) != dentro) continue;
      const bool interior = cheia.atb(l - 1, c) == dentro && cheia.atb(l + 1, c) == dentro &&
                            cheia.atb(l, c - 1) == dentro && cheia.atb(l, c + 1) == dentro;
      if (!interior) out(l, c) = dentro;
    }
  }
}

void contornoCirculo(cv::Mat_<unsigned char>& out, double d) {
  cv::Mat_<unsigned char> cheia;
  mascaraCirculo(cheia, d);
  contornoInterno(cheia, out);
}

void contornoQuadrado(cv::Mat_<unsigned char>& out, double d, double ang) {
  cv::Mat_<unsigned char> cheia;
  mascaraQuadrado(cheia, d, ang);
  contornoInterno(cheia, out);
}

void contornoRetangulo(cv::Mat_<unsigned char>& out, double d1, double d2, double ang) {
  cv::Mat_<unsigned char> cheia;
  mascaraRetangulo(cheia, d1, d2, ang);
  contornoInterno(cheia, out);
}

void contornoElipse(cv::Mat_<unsigned char>& out, double d1, double d2, double ang) {
  cv::Mat_<unsigned char> cheia;
  mascaraElipse(cheia, d1, d2, ang);
  contornoInterno(cheia, out);
}
