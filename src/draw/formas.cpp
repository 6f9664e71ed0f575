#include "draw/formas.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "kernels/formas.h"
#include "pim/img.h"
#include "pim/letreiro.h"

namespace {

using pim::VEC3B;

const VEC3B vermelho(0, 0, 255);
const VEC3B branco(255, 255, 255);
const VEC3B verde(0, 255, 0);

// The outline image of a record; empty for an unknown letter.
cv::Mat_<unsigned char> contorno(const MAXLOCAL& m) {
  cv::Mat_<unsigned char> g;
  if (m.forma == 'c') contornoCirculo(g, m.d1);
  if (m.forma == 'q') contornoQuadrado(g, m.d1, m.ang);
  if (m.forma == 'r') contornoRetangulo(g, m.d1, m.d2, m.ang);
  if (m.forma == 'e') contornoElipse(g, m.d1, m.d2, m.ang);
  return g;
}

void pinta(cv::Mat_<VEC3B>& img, std::int64_t l, std::int64_t c, const VEC3B& cor) {
  if (l < 0 || l >= img.rows || c < 0 || c >= img.cols) return;
  img(static_cast<int>(l), static_cast<int>(c)) = cor;
}

bool tocaContorno(const IMG_<unsigned char>& g, int y, int x) {
  return g.atb(y, x) == 0 || g.atb(y - 1, x) == 0 || g.atb(y + 1, x) == 0 || g.atb(y, x - 1) == 0 ||
         g.atb(y, x + 1) == 0;
}

// The pixels of one axis that a centre mark covers: `de` up to but excluding `ate`. `antes` and
// `largura` are 0 and 1 for a thin mark, 1 and 3 for a bold one. The end stops short of the last
// pixel of the axis.
struct TRECHO {
  int de;
  int ate;
};

TRECHO trecho(int centro, int n, int antes, int largura) {
  const std::int64_t de = std::max<std::int64_t>(std::int64_t{centro} - antes, 0);
  const std::int64_t ate = std::min<std::int64_t>(de + largura, n - 1);
  return {static_cast<int>(std::min<std::int64_t>(de, n)), static_cast<int>(ate)};
}

void marcaCentro(cv::Mat_<VEC3B>& img, const MAXLOCAL& m, bool bold) {
  const bool dentro = m.li >= 0 && m.li < img.rows && m.ci >= 0 && m.ci < img.cols;
  if (!bold && dentro) {
    img(m.li, m.ci) = verde;
    return;
  }
  const TRECHO linhas = trecho(m.li, img.rows, bold ? 1 : 0, bold ? 3 : 1);
  const TRECHO colunas = trecho(m.ci, img.cols, bold ? 1 : 0, bold ? 3 : 1);
  for (int l = linhas.de; l < linhas.ate; ++l) {
    for (int c = colunas.de; c < colunas.ate; ++c) img(l, c) = verde;
  }
}

}  // namespace

void tracaForma(cv::Mat_<VEC3B>& img, MAXLOCAL m, bool bold, VEC3B cor) {
  const cv::Mat_<unsigned char> g = contorno(m);
  const std::int64_t topo = std::int64_t{m.li} - (g.rows - 1) / 2;
  const std::int64_t esquerda = std::int64_t{m.ci} - (g.cols - 1) / 2;
  if (!bold) {
    for (int y = 0; y < g.rows; ++y) {
      for (int x = 0; x < g.cols; ++x) {
        if (g(y, x) == 0) pinta(img, topo + y, esquerda + x, cor);
      }
    }
    return;
  }
  const IMG_<unsigned char> vista(g, 255);
  for (int y = 0; y < g.rows; ++y) {
    for (int x = 0; x < g.cols - 1; ++x) {  // the last column is left out
      if (tocaContorno(vista, y, x)) pinta(img, topo + y, esquerda + x, cor);
    }
  }
}

cv::Mat_<VEC3B> tracaFormas(const cv::Mat_<VEC3B>& img, const std::vector<MAXLOCAL>& v, bool bold,
                            VEC3B cor) {
  cv::Mat_<VEC3B> copia = img.clone();
  for (const MAXLOCAL& m : v) tracaForma(copia, m, bold, cor);
  return copia;
}

cv::Mat_<VEC3B> tracaIndices(const cv::Mat_<VEC3B>& img, const std::vector<MAXLOCAL>& v) {
  cv::Mat_<VEC3B> copia = img.clone();
  for (std::size_t k = 0; k < v.size(); ++k) {
    const std::string texto = cv::format("%d", static_cast<int>(k));
    pim::putTxt(copia, v[k].li, v[k].ci, texto, vermelho, 1, true, branco);
  }
  return copia;
}

cv::Mat_<VEC3B> tracaCentros(const cv::Mat_<VEC3B>& img, const std::vector<MAXLOCAL>& v,
                             bool bold) {
  cv::Mat_<VEC3B> copia = img.clone();
  for (const MAXLOCAL& m : v) marcaCentro(copia, m, bold);
  return copia;
}
