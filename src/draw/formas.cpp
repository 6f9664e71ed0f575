#include "draw/formas.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "kernels/formas.h"
#include "pim/erro.h"
#include "pim/letreiro.h"

namespace {

using pim::TRECHO;
using pim::VEC3B;

const VEC3B vermelho(0, 0, 255);
const VEC3B branco(255, 255, 255);
const VEC3B verde(0, 255, 0);

// Row y of a shape without its inner pixels, as up to two stretches: the shape is convex, so that
// the inner ones are a stretch too.
struct CONTORNO {
  TRECHO esquerdo;
  TRECHO direito;
};

CONTORNO contorno(const PERFIL& p, int y) {
  const TRECHO t = p.linha(y);
  const TRECHO acima = p.linha(y - 1);
  const TRECHO abaixo = p.linha(y + 1);
  const bool cercada = acima.de <= acima.ate && abaixo.de <= abaixo.ate;
  const int de = std::max({t.de + 1, acima.de, abaixo.de});
  const int ate = std::min({t.ate - 1, acima.ate, abaixo.ate});
  if (!cercada || de > ate) return {t, {}};
  return {{t.de, de - 1}, {ate + 1, t.ate}};
}

// Where the rows of a shape stand in an image: row y at `topo` + y, its column 0 at `centro`.
// Columns before `primeira` and after `ultima` are not painted.
struct PINCEL {
  cv::Mat_<VEC3B>& img;
  std::int64_t topo;
  std::int64_t centro;
  int primeira;
  int ultima;
  VEC3B cor;

  // Paints a stretch, widened by `mais` at both ends.
  void pinta(int y, const TRECHO& t, int mais) const {
    const std::int64_t l = topo + y;
    if (t.de > t.ate || l < 0 || l >= img.rows) return;
    const std::int64_t de = std::max<std::int64_t>(std::max(t.de - mais, primeira) + centro, 0);
    const std::int64_t ate = std::min(std::min(t.ate + mais, ultima) + centro, img.cols - 1L);
    for (std::int64_t c = de; c <= ate; ++c) img(static_cast<int>(l), static_cast<int>(c)) = cor;
  }
  void pinta(int y, const CONTORNO& c, int mais) const {
    pinta(y, c.esquerdo, mais);
    pinta(y, c.direito, mais);
  }
};

// The pixels of one axis that a centre mark covers: `de` up to but excluding `ate`. `antes` and
// `largura` are 0 and 1 for a thin mark, 1 and 3 for a bold one. The end stops short of the last
// pixel of the axis.
struct INTERVALO {
  int de;
  int ate;
};

INTERVALO intervalo(int centro, int n, int antes, int largura) {
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
  const INTERVALO linhas = intervalo(m.li, img.rows, bold ? 1 : 0, bold ? 3 : 1);
  const INTERVALO colunas = intervalo(m.ci, img.cols, bold ? 1 : 0, bold ? 3 : 1);
  for (int l = linhas.de; l < linhas.ate; ++l) {
    for (int c = colunas.de; c < colunas.ate; ++c) img(l, c) = verde;
  }
}

}  // namespace

void tracaForma(cv::Mat_<VEC3B>& img, MAXLOCAL m, bool bold, VEC3B cor) {
  const PERFIL p = perfil(m.forma, m.d1, m.d2, m.ang);
  const bool conhecida = std::string_view("cqre").find(m.forma) != std::string_view::npos;
  if (p.lado < 1 && (conhecida || bold)) pim::erro("Erro: IMG_::constructor _mat nulo");
  const int meio = p.lado / 2;
  // A bold outline leaves out the last column of its image, and so do the pixels it adds.
  const PINCEL pincel{img, std::int64_t{m.li} - meio, m.ci, -meio, bold ? meio - 1 : meio, cor};
  // cppcheck-suppress danglingTemporaryLifetime ; PINCEL keeps copies of numbers
  const auto primeira = std::clamp<std::int64_t>(-pincel.topo - 1, 0, p.lado);
  const auto ultima = std::clamp<std::int64_t>(img.rows - pincel.topo + 1, 0, p.lado);
  for (auto y = static_cast<int>(primeira); y < ultima; ++y) {
    const CONTORNO c = contorno(p, y);
    pincel.pinta(y, c, bold ? 1 : 0);
    if (bold && y > 0) pincel.pinta(y - 1, c, 0);
    if (bold && y + 1 < p.lado) pincel.pinta(y + 1, c, 0);
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
