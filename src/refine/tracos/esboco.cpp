#include "refine/tracos/esboco.h"

#include <algorithm>
#include <cmath>

namespace refine {

namespace {

float logDe(double x) {
  return static_cast<float>(logaritmo(std::max(x, 0.003)));
}

float porContraste(double variancia, double contraste) {
  return static_cast<float>(
      std::min(2.0, std::sqrt(std::max(variancia, 0.0)) / std::max(contraste, 0.01)));
}

// Sums over the visible contour, each sample by its length.
struct SOMAS {
  double visto = 0, borda = 0, perto = 0, forte = 0, escuro = 0;
  double dentro = 0, dentro2 = 0, fora = 0;
  std::array<double, 4> quarto{}, quartoVisto{};
};

SOMAS soma(const ANDAR& andar, const FIGURA& f, const BANCADA& b) {
  const double alcance = std::max(1.5, 0.5 * alcanceUsual(f));
  SOMAS s;
  const std::size_t n = b.bordas.size();
  for (std::size_t k = 0; k < n; ++k) {
    const BORDA& x = b.bordas[k];
    const double arco = b.amostras[k].arco;
    if (!x.visivel) continue;
    s.visto += arco;
    s.quartoVisto[k * 4 / n] += arco;
    s.escuro += x.fora - x.dentro > andar.ruido / 2 ? arco : 0;
    s.dentro += arco * x.dentro;
    s.dentro2 += arco * x.dentro * x.dentro;
    s.fora += arco * x.fora;
    if (!x.ha) continue;
    const double e = x.desvio / alcance;
    s.borda += arco;
    s.quarto[k * 4 / n] += arco;
    s.perto += arco / (1 + 4 * e * e);
    s.forte += arco * std::min(1.0, x.rampa / (2 * andar.ruido));
  }
  return s;
}

struct MIOLO {
  double media = 0;
  double variancia = 0;
};

// Half way from the centre to the outline.
MIOLO miolo(const ANDAR& andar, const FIGURA& f, double padrao) {
  static const std::array<DIRECAO, 8> oito = [] {
    std::array<DIRECAO, 8> v{};
    for (std::size_t k = 0; k < v.size(); ++k) v[k] = direcao(45.0 * static_cast<double>(k) + 22.5);
    return v;
  }();
  const EIXOS e(f);
  double s = 0;
  double q = 0;
  int n = 0;
  for (const DIRECAO& d : oito) {
    const double u = f.d1 / 4 * d.cosseno;
    const double v = f.d2 / 4 * d.seno;
    const double l = e.l + u * e.d.seno + v * e.d.cosseno;
    const double c = e.c + u * e.d.cosseno - v * e.d.seno;
    if (!andar.contem(l, c)) continue;
    const double x = andar.em(l, c);
    s += x;
    q += x * x;
    ++n;
  }
  if (n == 0) return {padrao, 0};
  return {s / n, q / n - s / n * (s / n)};
}

}  // namespace

ESBOCADOS esboca(const ANDAR& andar, const FIGURA& f, double correl, const BANCADA& b) {
  ESBOCADOS t{};
  const SOMAS s = soma(andar, f, b);
  if (s.visto <= 0) return t;
  const double dentro = s.dentro / s.visto;
  const double fora = s.fora / s.visto;
  const MIOLO m = miolo(andar, f, dentro);
  t[eBorda] = static_cast<float>(s.borda / s.visto);
  t[ePerto] = static_cast<float>(s.perto / s.visto);
  t[ePerto2] = t[ePerto] * t[ePerto];
  t[eForte] = static_cast<float>(s.forte / s.visto);
  double pior = 1;
  for (std::size_t q = 0; q < 4; ++q) {
    if (s.quartoVisto[q] > 0) pior = std::min(pior, s.quarto[q] / s.quartoVisto[q]);
  }
  t[ePiorQuarto] = static_cast<float>(pior);
  t[eLogDegrau] = logDe(fora - dentro);
  t[eBeira] = porContraste(s.dentro2 / s.visto - dentro * dentro, fora - dentro);
  t[eEscuro] = static_cast<float>(s.escuro / s.visto);
  t[eMiolo] = porContraste(m.variancia, fora - m.media);
  t[eLogContraste] = logDe(fora - m.media);
  t[eLogPerimetro] = logDe(perimetro(f) * std::ldexp(1.0, andar.nivel));
  t[eLogAlongamento] = logDe(alongamento(f));
  t[eLogCorrelacao] = logDe(correl);
  t[eDegrauDesvio] = logDe(std::max(fora - dentro, 0.003) / (andar.desvio + 0.01));
  return t;
}

}  // namespace refine
