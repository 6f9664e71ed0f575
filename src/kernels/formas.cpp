#include "kernels/formas.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>
#include <string_view>

#include "pim/converte.h"
#include "pim/desenho.h"
#include "pim/erro.h"
#include "pim/img.h"

namespace {

constexpr unsigned char dentro = 0;
constexpr unsigned char fora = 255;

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

int ladoExigido(char forma, double d1, double d2) {
  return exigeLado(ladoDaMascara(forma, d1, d2), forma, d1, d2, maiorLado);
}

// Every row of the small discs is one stretch.
PERFIL perfilPequeno(const cv::Mat_<unsigned char>& mascara) {
  PERFIL p{mascara.rows, {}};
  const int meio = mascara.cols / 2;
  for (int l = 0; l < mascara.rows; ++l) {
    pim::TRECHO t;
    for (int c = 0; c < mascara.cols; ++c) {
      if (mascara(l, c) != dentro) continue;
      t = {t.ate < t.de ? c - meio : t.de, c - meio};
    }
    p.linhas.push_back(t);
  }
  return p;
}

PERFIL perfilCirculo(int n, double d) {
  const int classe = pim::arredonda(d);
  if (classe <= 0) return {};
  if (classe > 4) return {n, pim::trechosCirculo(n / 2, pim::trunca(d * 0.5))};
  cv::Mat_<unsigned char> mascara;
  mascaraCirculo(mascara, d);
  return perfilPequeno(mascara);
}

}  // namespace

double ladoImpar(double extensao, int margem) {
  return 2 * std::ceil((extensao - 1) / 2) + 1 + margem;
}

double ladoDaMascara(char forma, double d1, double d2) {
  if (forma != 'c' && forma != 'q' && forma != 'r' && forma != 'e') return 0;
  if (forma == 'c' || forma == 'q') d2 = d1;
  if (!std::isfinite(d1) || !std::isfinite(d2)) return std::numeric_limits<double>::infinity();
  const double maior = std::max(d1, d2);
  switch (forma) {
    case 'c':
      return ladoImpar(maior, 2);
    case 'q':
    case 'r':
      return ladoImpar(maior * std::numbers::sqrt2, 0);
    default:
      return ladoImpar(maior, 0);
  }
}

int exigeLado(double lado, char forma, double d1, double d2, int maior, const std::string& onde) {
  if (lado > maior) {
    pim::erro("Erro: Forma grande demais ", cv::format("%c %g %g", forma, d1, d2), onde);
  }
  return pim::trunca(lado);
}

void mascaraCirculo(cv::Mat_<unsigned char>& out, double d) {
  const int n = ladoExigido('c', d, d);
  const int classe = pim::arredonda(d);
  if (classe <= 0) return;
  if (classe <= 4) return discoPequeno(out, discosPequenos[static_cast<std::size_t>(classe - 1)]);
  prepara(out, n, fora);
  pim::circulo(out, n / 2, n / 2, pim::trunca(d * 0.5), dentro, -1);
}

void mascaraQuadrado(cv::Mat_<unsigned char>& out, double d, double ang) {
  const int n = ladoExigido('q', d, d);
  const int meio = pim::trunca(d * 0.5);
  prepara(out, n, fora);
  pim::rotRetang(out, n / 2, n / 2, meio, meio, dentro, -1, ang);
}

void mascaraRetangulo(cv::Mat_<unsigned char>& out, double d1, double d2, double ang) {
  const int n = ladoExigido('r', d1, d2);
  prepara(out, n, fora);
  pim::rotRetang(out, n / 2, n / 2, pim::trunca(d1 * 0.5), pim::trunca(d2 * 0.5), dentro, -1, ang);
}

void mascaraElipse(cv::Mat_<unsigned char>& out, double d1, double d2, double ang) {
  const int n = ladoExigido('e', d1, d2);
  prepara(out, n, fora);
  pim::elipse(out, n / 2, n / 2, pim::trunca(d1 * 0.5), pim::trunca(d2 * 0.5), dentro, -1, ang);
}

PERFIL perfil(char forma, double d1, double d2, double ang) {
  if (forma == 'c' || forma == 'q') d2 = d1;
  const int n = ladoExigido(forma, d1, d2);
  const int meio1 = pim::trunca(d1 * 0.5);
  const int meio2 = pim::trunca(d2 * 0.5);
  if (n < 1) return {};
  switch (forma) {
    case 'c':
      return perfilCirculo(n, d1);
    case 'q':
    case 'r':
      return {n, pim::trechosRotRetang(n / 2, meio1, meio2, ang)};
    default:
      return {n, pim::trechosElipse(n / 2, meio1, meio2, ang)};
  }
}

void contornoInterno(cv::Mat_<unsigned char> imagem, cv::Mat_<unsigned char>& out) {
  const IMG_<unsigned char> cheia(imagem, fora);
  out.create(imagem.size());
  out.setTo(fora);
  for (int l = 0; l < imagem.rows; ++l) {
    const unsigned char* linha = imagem[l];
    unsigned char* contorno = out[l];
    for (int c = 0; c < imagem.cols; ++c) {
      if (linha[c] != dentro) continue;
      const bool interior = cheia.atb(l - 1, c) == dentro && cheia.atb(l + 1, c) == dentro &&
                            cheia.atb(l, c - 1) == dentro && cheia.atb(l, c + 1) == dentro;
      if (!interior) contorno[c] = dentro;
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
