#include "examples/cenas/imagem/pintura.h"

#include <algorithm>
#include <cmath>

#include "examples/cenas/imagem/desfoque.h"
#include "examples/cenas/imagem/textura.h"

namespace cenas {

namespace {

double sino(double x) {
  return std::exp(-x * x / 2);
}

// A grain's surface at a place: in halves of its sizes, and how far inside its outline.
struct LUGAR {
  cv::Point2d u;     // in the grain's own axes
  double nivel;      // 0 in the middle, 1 at the outline
  double fundo;      // pixels to the outline, roughly
  cv::Point2d fora;  // unit vector from the middle
};

LUGAR lugar(const FIGURA& f, int l, int c) {
  LUGAR p{f.eixos(l, c), f.nivel(l, c), 0, {c - f.grao.coluna, l - f.grao.linha}};
  p.fundo = std::max(1 - p.nivel, 0.0) * std::min(f.grao.d1, f.grao.d2) / 2;
  const double raio = std::hypot(p.fora.x, p.fora.y);
  if (raio > 0) p.fora *= 1 / raio;
  return p;
}

// Struck figures: a ring inside the rim and patches with strong limits.
double cunho(const LUGAR& p, const TINTA& t, int l, int c) {
  const double aro = sino((p.nivel - 0.86) / 0.03);
  if (p.nivel > 0.8) return aro;
  const double figura = nuvem(9, t.semente, l, c);
  return std::tanh(10 * (figura - 0.05)) * (0.6 + 0.4 * nuvem(3, t.semente ^ 0x9U, l, c));
}

double relevo(const ASPECTO& a, const LUGAR& p, const TINTA& t, int l, int c) {
  const double lado = p.fora.dot(t.luz);
  double x = a.relevo * p.nivel * p.nivel;
  x += a.bisel * lado * sino(p.fundo / 1.6);
  x += a.aro * sino((p.fundo - 1.5) / 1.0);
  const cv::Point2d reflexo(p.fora * p.nivel - 0.4 * t.luz);
  x += a.brilho * sino(std::hypot(reflexo.x, reflexo.y) / 0.22);
  if (a.manchas > 0) x += 2 * a.manchas * t.contraste * nuvem(a.passoManchas, t.semente, l, c);
  if (a.cunho > 0) x += a.cunho * cunho(p, t, l, c);
  return x;
}

RETALHO coberturaVista(const OBJETO& o, const TINTA& t) {
  RETALHO r = o.cobertura;
  if (t.foco > 0.05) {
    r = cobertura(o.contorno, 1 + static_cast<int>(std::ceil(4 * t.foco)));
    r.valor = desfoca(r.valor, t.foco);
  }
  if (t.furo <= 0) return r;
  const RETALHO furo = cobertura(escalado(o.contorno, o.verdade, t.furo));
  const cv::Rect comum = r.caixa() & furo.caixa();
  for (int l = comum.y; l < comum.y + comum.height; ++l) {
    for (int c = comum.x; c < comum.x + comum.width; ++c) {
      r.valor(l - r.canto.y, c - r.canto.x) *= 1 - furo.em(l, c);
    }
  }
  return r;
}

cv::Rect quadro(const cv::Mat_<float>& imagem) {
  return {{0, 0}, imagem.size()};
}

}  // namespace

TINTA sorteiaTinta(const TIPO& tipo, const OBJETO& objeto, cv::Point2d luz, SORTEIO& s) {
  const ASPECTO& a = tipo.aspecto;
  TINTA t{};
  t.contraste = a.contraste.sorteia(s);
  t.tom = tipo.chao.claro * (objeto.claro ? 1 + t.contraste : 1 - t.contraste);
  t.foco = a.foco.sorteia(s);
  t.furo = a.furo.sorteia(s);
  t.luz = luz;
  t.semente = s.bits();
  return t;
}

void pinta(cv::Mat_<float>& imagem, const TIPO& tipo, const OBJETO& objeto, const TINTA& tinta) {
  const RETALHO r = coberturaVista(objeto, tinta);
  const FIGURA f(objeto.verdade);
  const cv::Rect alcance = r.caixa() & quadro(imagem);
  for (int l = alcance.y; l < alcance.y + alcance.height; ++l) {
    for (int c = alcance.x; c < alcance.x + alcance.width; ++c) {
      const float parte = r.em(l, c);
      if (parte <= 0) continue;
      const LUGAR p = lugar(f, l, c);
      const double variacao = tipo.chao.claro * relevo(tipo.aspecto, p, tinta, l, c);
      const auto tom = static_cast<float>(std::clamp(tinta.tom + variacao, 0.0, 1.0));
      float& x = imagem(l, c);
      const float novo =
          tipo.aspecto.translucido ? x * tom / static_cast<float>(tipo.chao.claro) : tom;
      x += parte * (novo - x);
    }
  }
}

void cobre(cv::Mat_<float>& imagem, const RETALHO& r, float tom) {
  const cv::Rect alcance = r.caixa() & quadro(imagem);
  for (int l = alcance.y; l < alcance.y + alcance.height; ++l) {
    for (int c = alcance.x; c < alcance.x + alcance.width; ++c) {
      imagem(l, c) += r.em(l, c) * (tom - imagem(l, c));
    }
  }
}

void sombreia(cv::Mat_<float>& imagem, const TIPO& tipo, const std::vector<OBJETO>& objetos,
              cv::Point2d luz, SORTEIO& s) {
  const double forca = tipo.aspecto.sombra.sorteia(s);
  if (forca <= 0) return;
  const double alcance = tipo.aspecto.alcanceSombra.sorteia(s);
  cv::Mat_<float> sombra(imagem.size(), 0.0F);
  constexpr int passos = 6;
  for (const OBJETO& o : objetos) {
    for (int i = 1; i <= passos; ++i) {
      const RETALHO r = cobertura(deslocado(o.contorno, -alcance * i / passos * luz));
      const cv::Rect comum = r.caixa() & quadro(imagem);
      for (int l = comum.y; l < comum.y + comum.height; ++l) {
        for (int c = comum.x; c < comum.x + comum.width; ++c) {
          sombra(l, c) = std::max(sombra(l, c), r.em(l, c));
        }
      }
    }
  }
  sombra = desfoca(sombra, 0.3 * alcance);
  for (int l = 0; l < imagem.rows; ++l) {
    for (int c = 0; c < imagem.cols; ++c) {
      imagem(l, c) *= 1 - static_cast<float>(forca) * sombra(l, c);
    }
  }
}

}  // namespace cenas
