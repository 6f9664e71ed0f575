#include "textura/acha.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <opencv2/imgproc.hpp>
#include <tuple>

#include "textura/oitava.h"

namespace textura {
namespace {

// An instance of one of the octaves.
struct CANDIDATO {
  std::size_t oitava = 0;
  int rotulo = 0;
  double apoio = 0;
  double prefere = 0;  // among those that cover the same place
};

double diametro(const SOMAS& s) {
  return std::sqrt(4 * static_cast<double>(s.n) / std::numbers::pi);
}

// Probability that the instance is a grain; the weights are those of a logistic regression on
// instances of rendered scenes that the network was not trained on (docs/textura.md).
double apoio(const SOMAS& s, const OITAVA::ACORDO& a) {
  const double z = -4.03 + 5.81 * a.parte + 1.16 * s.pico / 255;
  return 1 / (1 + refine::exponencial(-z));
}

// How well the network sees a grain of such a diameter in pixels of the octave.
double nitidez(double d, bool primeira, bool ultima) {
  const double pequeno = primeira ? 1 : std::clamp((d - 12) / 12, 0.05, 1.0);
  const double grande = ultima || d <= 60 ? 1 : 60 / d;
  return pequeno * grande;
}

std::vector<OITAVA> oitavas(cv::Mat_<unsigned char> foto, const TOM& t, const REDE& rede,
                            int fios) {
  constexpr int menorLado = 96;
  std::vector<OITAVA> v;
  while (true) {
    v.push_back(vejaOitava(foto, t, rede, fios));
    if (std::min(foto.rows, foto.cols) < 2 * menorLado) return v;
    const cv::Rect par(0, 0, foto.cols / 2 * 2, foto.rows / 2 * 2);
    cv::Mat_<unsigned char> metade;
    cv::resize(foto(par), metade, par.size() / 2, 0, 0, cv::INTER_AREA);
    foto = metade;
  }
}

std::vector<CANDIDATO> candidatos(const std::vector<OITAVA>& v, const MODO& modo) {
  std::vector<CANDIDATO> c;
  for (std::size_t o = 0; o < v.size(); ++o) {
    for (std::size_t k = 0; k < v[o].instancias.size(); ++k) {
      const double d = diametro(v[o].instancias[k]);
      const double cheio = std::ldexp(d, static_cast<int>(o));
      constexpr double menorDeTodos = 6;
      if (d < menorDeTodos || cheio < modo.menor || cheio > modo.maior) continue;
      const double a = apoio(v[o].instancias[k], v[o].acordos[k]);
      const double n = nitidez(d, o == 0, o + 1 == v.size());
      c.push_back({o, static_cast<int>(k) + 1, a, a * n});
    }
  }
  std::sort(c.begin(), c.end(), [](const CANDIDATO& a, const CANDIDATO& b) {
    return std::tuple(-a.prefere, a.oitava, a.rotulo) < std::tuple(-b.prefere, b.oitava, b.rotulo);
  });
  return c;
}

// Calls faz(row, column) for the pixels of the photograph that a candidate covers.
template <class FAZ>
void percorre(const OITAVA& o, const CANDIDATO& c, cv::Size tamanho, FAZ faz) {
  const cv::Rect& r = o.instancias[static_cast<std::size_t>(c.rotulo) - 1].caixa;
  const auto s = static_cast<int>(c.oitava);
  const int fimL = std::min((r.y + r.height) << s, tamanho.height);
  const int fimC = std::min((r.x + r.width) << s, tamanho.width);
  for (int l = r.y << s; l < fimL; ++l) {
    for (int k = r.x << s; k < fimC; ++k) {
      if (o.rotulos(l >> s, k >> s) == c.rotulo) faz(l, k);
    }
  }
}

// Of those that cover the same place, the one that is seen best; the others go.
std::vector<CANDIDATO> escolhe(const std::vector<OITAVA>& v, const std::vector<CANDIDATO>& c,
                               cv::Mat_<int>& rotulos) {
  constexpr double maiorComum = 0.35;
  std::vector<CANDIDATO> ficam;
  for (const CANDIDATO& x : c) {
    long long todos = 0;
    long long tomados = 0;
    percorre(v[x.oitava], x, rotulos.size(), [&](int l, int k) {
      ++todos;
      tomados += rotulos(l, k) != 0 ? 1 : 0;
    });
    if (static_cast<double>(tomados) > maiorComum * static_cast<double>(todos)) continue;
    ficam.push_back(x);
    const auto n = static_cast<int>(ficam.size());
    percorre(v[x.oitava], x, rotulos.size(), [&](int l, int k) {
      if (rotulos(l, k) == 0) rotulos(l, k) = n;
    });
  }
  return ficam;
}

// Mean grey of points of the ellipse enlarged so much, 0 to 1.
double cinza(const cv::Mat_<unsigned char>& foto, const refine::FIGURA& f, double vezes) {
  constexpr int pontos = 32;
  const refine::EIXOS e(f);
  double total = 0;
  for (int i = 0; i < pontos; ++i) {
    const refine::DIRECAO d = refine::direcao(360.0 * i / pontos);
    const double u = vezes * f.d1 / 2 * d.cosseno;
    const double w = vezes * f.d2 / 2 * d.seno;
    const auto l =
        std::clamp(std::lround(f.l + u * e.d.seno + w * e.d.cosseno), 0L, foto.rows - 1L);
    const auto c =
        std::clamp(std::lround(f.c + u * e.d.cosseno - w * e.d.seno), 0L, foto.cols - 1L);
    total += foto(static_cast<int>(l), static_cast<int>(c));
  }
  return total / (255.0 * pontos);
}

refine::APURADO mede(const cv::Mat_<unsigned char>& foto, const OITAVA& o, const CANDIDATO& c) {
  const auto k = static_cast<std::size_t>(c.rotulo) - 1;
  const double s = std::ldexp(1.0, static_cast<int>(c.oitava));
  refine::APURADO a;
  a.figura = elipse(o.instancias[k]);
  a.figura.l = (a.figura.l + 0.5) * s - 0.5;
  a.figura.c = (a.figura.c + 0.5) * s - 0.5;
  a.figura.d1 *= s;
  a.figura.d2 *= s;
  a.apoio = c.apoio;
  a.correl = static_cast<float>(c.apoio);
  a.contraste = cinza(foto, a.figura, 1.25) - cinza(foto, a.figura, 0.6);
  a.erro = o.acordos[k].erro;
  for (std::size_t i = 0; i < 4; ++i) a.erro[i] = std::hypot(a.erro[i], 0.3) * s;
  a.erro[4] = std::hypot(a.erro[4], 2);
  return a;
}

// Only what is supported enough stays; the labels follow.
void peneira(ACHADOS& a, double menorApoio) {
  std::vector<std::size_t> ordem;
  for (std::size_t k = 0; k < a.graos.size(); ++k) {
    if (a.graos[k].apoio >= menorApoio) ordem.push_back(k);
  }
  std::stable_sort(ordem.begin(), ordem.end(), [&a](std::size_t x, std::size_t y) {
    return a.graos[x].apoio > a.graos[y].apoio;
  });
  std::vector<int> novo(a.graos.size() + 1, 0);
  std::vector<refine::APURADO> graos;
  for (const std::size_t k : ordem) {
    graos.push_back(a.graos[k]);
    novo[k + 1] = static_cast<int>(graos.size());
  }
  for (int& r : a.rotulos) r = novo[static_cast<std::size_t>(r)];
  a.graos = std::move(graos);
}

}  // namespace

ACHADOS acha(const cv::Mat_<unsigned char>& foto, const REDE& rede, const MODO& modo) {
  const TOM t = tom(foto);
  const std::vector<OITAVA> v = oitavas(foto, t, rede, modo.fios);
  ACHADOS a;
  a.rotulos = cv::Mat_<int>(foto.size(), 0);
  a.mapa = v[0].mapa;
  if (t.desvio <= menorDesvio) return a;  // nothing is to be seen in it, whatever the network says
  for (const CANDIDATO& c : escolhe(v, candidatos(v, modo), a.rotulos)) {
    a.graos.push_back(mede(foto, v[c.oitava], c));
  }
  peneira(a, 1 - modo.sensibilidade);
  return a;
}

}  // namespace textura
