#include "pim/desenho.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace pim {
namespace {

constexpr double folga = 1e-9;  // relative tolerance of the edge comparisons

// The direction of the first axis: cosine along the columns, sine along the rows.
struct DIRECAO {
  double cos;
  double sen;
};

// Exact at the multiples of 90 degrees, so that upright shapes have straight sides.
DIRECAO direcao(double ang) {
  const double volta = std::fmod(ang, 360.0);
  const double quartos = volta / 90.0;
  if (quartos == std::trunc(quartos)) {
    constexpr std::array<double, 4> cossenos = {1, 0, -1, 0};
    const auto k = static_cast<std::size_t>(static_cast<int>(quartos) + 4) % 4;
    return {cossenos[k], cossenos[(k + 3) % 4]};
  }
  const double rad = volta * (3.141592653589793 / 180.0);
  return {std::cos(rad), std::sin(rad)};
}

// A range of column offsets from the centre; empty when `de` > `ate`.
struct FAIXA {
  double de;
  double ate;
};

// Empty even when widened by a pixel or two.
constexpr FAIXA nenhuma = {8, -8};

// A disc. `linha` gives, for a row offset, a range of columns that holds all of the shape's pixels
// in that row to within one; `contem` decides each pixel.
struct DISCO {
  double raio;

  double alcance() const { return raio; }
  bool contem(double dl, double dc) const { return dl * dl + dc * dc <= raio * raio; }
  FAIXA linha(double dl) const {
    const double meia = std::sqrt(std::max(0.0, raio * raio - dl * dl));
    return {-meia, meia};
  }
};

struct RETANGULO {
  double meio1;  // from the centre to the edge, half a pixel included
  double meio2;
  DIRECAO dir;

  double alcance() const { return meio1 + meio2; }

  bool contem(double dl, double dc) const {
    const double u = dc * dir.cos + dl * dir.sen;
    const double v = dl * dir.cos - dc * dir.sen;
    return std::abs(u) <= meio1 * (1 + folga) && std::abs(v) <= meio2 * (1 + folga);
  }

  // Columns where |a * dc + b| <= meio.
  static FAIXA entre(double a, double b, double meio, double alcance) {
    if (std::abs(a) < folga) {
      // The side runs along the row, which lies inside it or outside as a whole.
      return std::abs(b) > meio + folga * alcance + 1 ? nenhuma : FAIXA{-alcance, alcance};
    }
    const double p = (-meio - b) / a;
    const double q = (meio - b) / a;
    return {std::min(p, q), std::max(p, q)};
  }

  FAIXA linha(double dl) const {
    const FAIXA u = entre(dir.cos, dl * dir.sen, meio1 * (1 + folga), alcance());
    const FAIXA v = entre(-dir.sen, dl * dir.cos, meio2 * (1 + folga), alcance());
    return {std::max(u.de, v.de), std::min(u.ate, v.ate)};
  }
};

struct ELIPSE {
  double eixo1;
  double eixo2;
  DIRECAO dir;

  double alcance() const { return std::max(eixo1, eixo2); }

  bool contem(double dl, double dc) const {
    const double u = dc * dir.cos + dl * dir.sen;
    const double v = dl * dir.cos - dc * dir.sen;
    const double perto = folga * (1 + alcance());
    if (eixo1 == 0) return std::abs(u) <= perto && std::abs(v) <= eixo2 + perto;
    if (eixo2 == 0) return std::abs(v) <= perto && std::abs(u) <= eixo1 + perto;
    const double p = u / eixo1;
    const double q = v / eixo2;
    return p * p + q * q <= 1 + folga;
  }

  // Solves contem(dl, dc) for dc: a dc^2 + 2 b dc + c <= 0, multiplied by (eixo1 eixo2)^2 so that
  // zero axes need no division.
  FAIXA linha(double dl) const {
    const double e1 = eixo1 * eixo1;
    const double e2 = eixo2 * eixo2;
    const double a = e2 * dir.cos * dir.cos + e1 * dir.sen * dir.sen;
    const double b = dl * dir.cos * dir.sen * (e2 - e1);
    const double c = dl * dl * (e2 * dir.sen * dir.sen + e1 * dir.cos * dir.cos) - e1 * e2;
    // The shape reaches sqrt(a) rows from its centre.
    if (std::abs(dl) > std::sqrt(a) + 2) return nenhuma;
    if (a <= folga * (e1 + e2)) return {-alcance(), alcance()};
    const double raiz = std::sqrt(std::max(0.0, b * b - a * c));
    return {(-b - raiz) / a, (-b + raiz) / a};
  }
};

// A range of columns from the centre; empty when `de` > `ate`.
struct COLUNAS {
  std::int64_t de = 0;
  std::int64_t ate = -1;
};

// One row of a convex shape, cut to the columns in `limite`: the analytic range finds the ends to
// within a pixel, the membership test of the pixels there decides. Every pixel between two members
// is a member.
template <class FORMA>
COLUNAS linhaDa(const FORMA& forma, double dl, const COLUNAS& limite) {
  const FAIXA faixa = forma.linha(dl);
  if (!(faixa.de <= faixa.ate + 2)) return {};
  const double borda = forma.alcance() + 1;
  auto de = static_cast<std::int64_t>(std::ceil(std::max(faixa.de, -borda))) - 1;
  auto ate = static_cast<std::int64_t>(std::floor(std::min(faixa.ate, borda))) + 1;
  // Cut first: the search below never leaves the image, however large the shape.
  de = std::max(de, limite.de);
  ate = std::min(ate, limite.ate);
  while (de <= ate && !forma.contem(dl, static_cast<double>(de))) ++de;
  while (ate > de && !forma.contem(dl, static_cast<double>(ate))) --ate;
  return {de, ate};
}

template <class T, class FORMA>
void pintaLinha(cv::Mat_<T>& img, int y, std::int64_t l, std::int64_t c, const FORMA& forma,
                T cor) {
  const auto dl = static_cast<double>(y - l);
  const COLUNAS colunas = linhaDa(forma, dl, {-c, img.cols - 1 - c});
  T* linha = img[y];
  for (std::int64_t x = c + colunas.de; x <= c + colunas.ate; ++x) linha[x] = cor;
}

template <class FORMA>
std::vector<TRECHO> trechos(int meio, const FORMA& forma) {
  std::vector<TRECHO> linhas;
  for (int dl = -meio; dl <= meio; ++dl) {
    const COLUNAS colunas = linhaDa(forma, static_cast<double>(dl), {-meio, meio});
    linhas.push_back({static_cast<int>(colunas.de), static_cast<int>(colunas.ate)});
  }
  return linhas;
}

template <class T, class FORMA>
void preenche(cv::Mat_<T>& img, std::int64_t l, std::int64_t c, const FORMA& forma, T cor) {
  const auto alcance = static_cast<std::int64_t>(std::ceil(forma.alcance())) + 1;
  const auto y0 = static_cast<int>(std::max<std::int64_t>(l - alcance, 0));
  const auto y1 = static_cast<int>(std::min<std::int64_t>(l + alcance, img.rows - 1));
  for (int y = y0; y <= y1; ++y) pintaLinha(img, y, l, c, forma, cor);
}

// The part of `fora` that lies outside `dentro`.
template <class T, class FORMA>
void contorna(cv::Mat_<T>& img, int l, int c, const FORMA& fora, const FORMA& dentro, T cor) {
  const auto alcance = static_cast<std::int64_t>(std::ceil(fora.alcance())) + 1;
  const auto inicio = [&](int centro) { return std::max<std::int64_t>(centro - alcance, 0); };
  const auto fim = [&](int centro, int n) {
    return std::min<std::int64_t>(centro + alcance, n - 1);
  };
  for (auto y = inicio(l); y <= fim(l, img.rows); ++y) {
    for (auto x = inicio(c); x <= fim(c, img.cols); ++x) {
      const auto dl = static_cast<double>(y - l);
      const auto dc = static_cast<double>(x - c);
      if (fora.contem(dl, dc) && !dentro.contem(dl, dc)) {
        img(static_cast<int>(y), static_cast<int>(x)) = cor;
      }
    }
  }
}

// Draws the shape that `forma(margem)` gives, `margem` being how far its edge moves inward.
// `menor` is the smaller half-extent: an outline that reaches the centre fills the shape.
template <class T, class FORMADE>
void desenha(cv::Mat_<T>& img, int l, int c, int menor, T cor, int espessura, FORMADE forma) {
  if (menor < 0 || espessura == 0) return;
  if (espessura < 0 || espessura > menor) {
    preenche(img, l, c, forma(0), cor);
  } else {
    contorna(img, l, c, forma(0), forma(espessura), cor);
  }
}

template <class T>
void desenhaCirculo(cv::Mat_<T>& img, int l, int c, int raio, T cor, int espessura) {
  desenha(img, l, c, raio, cor, espessura,
          [&](int margem) { return DISCO{static_cast<double>(raio) - margem}; });
}

template <class T>
void desenhaRetangulo(cv::Mat_<T>& img, int l, int c, int tam1, int tam2, T cor, int espessura,
                      double ang) {
  const DIRECAO dir = direcao(ang);
  desenha(img, l, c, std::min(tam1, tam2), cor, espessura, [&](int margem) {
    return RETANGULO{tam1 + 0.5 - margem, tam2 + 0.5 - margem, dir};
  });
}

template <class T>
void desenhaElipse(cv::Mat_<T>& img, int l, int c, int tam1, int tam2, T cor, int espessura,
                   double ang) {
  const DIRECAO dir = direcao(ang);
  desenha(img, l, c, std::min(tam1, tam2), cor, espessura, [&](int margem) {
    return ELIPSE{static_cast<double>(tam1) - margem, static_cast<double>(tam2) - margem, dir};
  });
}

std::vector<TRECHO> semTrechos(int meio) {
  return std::vector<TRECHO>(2 * static_cast<std::size_t>(meio) + 1);
}

}  // namespace

void circulo(cv::Mat_<unsigned char>& img, int l, int c, int raio, unsigned char cor,
             int espessura) {
  desenhaCirculo(img, l, c, raio, cor, espessura);
}

void circulo(cv::Mat_<float>& img, int l, int c, int raio, float cor, int espessura) {
  desenhaCirculo(img, l, c, raio, cor, espessura);
}

void rotRetang(cv::Mat_<unsigned char>& img, int l, int c, int tam1, int tam2, unsigned char cor,
               int espessura, double ang) {
  desenhaRetangulo(img, l, c, tam1, tam2, cor, espessura, ang);
}

void rotRetang(cv::Mat_<float>& img, int l, int c, int tam1, int tam2, float cor, int espessura,
               double ang) {
  desenhaRetangulo(img, l, c, tam1, tam2, cor, espessura, ang);
}

void elipse(cv::Mat_<unsigned char>& img, int l, int c, int tam1, int tam2, unsigned char cor,
            int espessura, double ang) {
  desenhaElipse(img, l, c, tam1, tam2, cor, espessura, ang);
}

void elipse(cv::Mat_<float>& img, int l, int c, int tam1, int tam2, float cor, int espessura,
            double ang) {
  desenhaElipse(img, l, c, tam1, tam2, cor, espessura, ang);
}

std::vector<TRECHO> trechosCirculo(int meio, int raio) {
  if (raio < 0) return semTrechos(meio);
  return trechos(meio, DISCO{static_cast<double>(raio)});
}

std::vector<TRECHO> trechosRotRetang(int meio, int tam1, int tam2, double ang) {
  if (std::min(tam1, tam2) < 0) return semTrechos(meio);
  return trechos(meio, RETANGULO{tam1 + 0.5, tam2 + 0.5, direcao(ang)});
}

std::vector<TRECHO> trechosElipse(int meio, int tam1, int tam2, double ang) {
  if (std::min(tam1, tam2) < 0) return semTrechos(meio);
  return trechos(meio, ELIPSE{static_cast<double>(tam1), static_cast<double>(tam2), direcao(ang)});
}

}  // namespace pim
