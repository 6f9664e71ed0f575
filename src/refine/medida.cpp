#include "refine/medida.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace refine {

namespace {

constexpr int passos = 8;
constexpr double parada = 0.003;  // pixels

float mediana(std::vector<float>& v, float padrao) {
  if (v.empty()) return padrao;
  const auto k = static_cast<std::ptrdiff_t>(v.size() / 2);
  std::nth_element(v.begin(), v.begin() + k, v.end());
  return v[static_cast<std::size_t>(k)];
}

struct ESTADO_DA_MEDIDA {
  double desfoque = 1;  // variance of the slope's peak, square pixels
  double rampa = 0;     // median slope
  double espalha = 1;   // median distance of the edges from the contour
  double vista = 0;
  double quantas = 0;
};

ESTADO_DA_MEDIDA olha(BANCADA& b) {
  std::vector<float> larguras, rampas, longe;
  double visto = 0, vista = 0;
  for (std::size_t i = 0; i < b.bordas.size(); ++i) {
    const BORDA& x = b.bordas[i];
    if (!x.visivel) continue;
    visto += b.amostras[i].arco;
    if (!x.ha) continue;
    vista += b.amostras[i].arco;
    rampas.push_back(x.rampa);
    if (b.amostras[i].peso < 1) continue;
    larguras.push_back(x.largura2);
    longe.push_back(std::fabs(x.desvio));
  }
  ESTADO_DA_MEDIDA e;
  e.desfoque = std::clamp(static_cast<double>(mediana(larguras, 1)), 0.64 + 1.0 / 3, 16.0);
  e.rampa = mediana(rampas, 0);
  e.espalha = mediana(longe, 1);
  e.vista = visto > 0 ? vista / visto : 0;
  e.quantas = vista;
  return e;
}

// Leaves out the samples that others hide; a little way out must be free too.
void esconde(ENCOBREM encobrem, BANCADA& b) {
  for (const FIGURA& g : encobrem) {
    const EIXOS eixos(g);
    for (std::size_t i = 0; i < b.bordas.size(); ++i) {
      const AMOSTRA& a = b.amostras[i];
      if (contem(g, eixos, a.l + 1.5 * a.nl, a.c + 1.5 * a.nc)) b.bordas[i] = {};
    }
  }
}

// Neighbours to average on either side, so that the slope stands well above the noise.
int quantosJuntar(const ANDAR& foto, double rampa, std::size_t amostras) {
  const double sobra = rampa / (foto.ruido / 2.55 + 1e-6);
  constexpr double basta = 8;
  if (sobra >= basta) return 0;
  const double n = (basta / std::max(sobra, 1.0)) * (basta / std::max(sobra, 1.0)) / 2;
  return static_cast<int>(std::min({n, 8.0, static_cast<double>(amostras) / 24}));
}

// Samples side by side see much the same noise: their errors are not independent. And what is not
// noise, as texture near the edge, is in no scatter. Both from rendered scenes of known sizes.
constexpr double vizinhasIguais = 2.2;
constexpr double erroDeSempre = 0.06;  // pixels, at the end of the longer half size for the angle

// Standard errors from the equations of the last step; false when they have none.
bool erros(const EQUACOES& q, int junta, MEDIDA& m) {
  const std::optional<SISTEMA> c = covariancia(q);
  if (!c) return false;
  const auto sigma = [&](int i, double sempre) {
    const auto k = static_cast<std::size_t>(i);
    const double s = vizinhasIguais * std::sqrt(std::max(0.0, (*c)[k][k]) * (1 + 2.0 * junta));
    return std::sqrt(s * s + sempre * sempre);
  };
  m.erro[0] = sigma(0, erroDeSempre);
  m.erro[1] = sigma(1, erroDeSempre);
  m.erro[2] = sigma(2, erroDeSempre);
  m.erro[3] = q.n == 5 ? sigma(3, erroDeSempre) : m.erro[2];
  const double braco = std::max(m.figura.d1, m.figura.d2) / 2;
  m.erro[4] = q.n == 3 ? 0 : sigma(q.n - 1, erroDeSempre / braco) * (180 / std::numbers::pi);
  return true;
}

// How the edges of a measure are looked for.
struct PROCURA {
  double alcance;
  double primeira = 0;  // slope of an innermost edge; 0: the strongest edge
};

std::optional<MEDIDA> medeCom(const ANDAR& foto, const FIGURA& inicial, PROCURA procura,
                              ENCOBREM encobrem, BANCADA& b) {
  MEDIDA m;
  FIGURA& f = m.figura;
  f = inicial;
  double alcance = procura.alcance;
  int junta = procura.primeira > 0 ? 2 : 0;
  int nitidez = procura.primeira > 0 ? 0 : 4;
  ESTADO_DA_MEDIDA e;
  EQUACOES q;
  for (int k = 0; k < passos; ++k) {
    const int n = static_cast<int>(std::clamp(perimetro(f), 32.0, 400.0)) / 2 * 2;
    amostra(f, n, b.amostras);
    procuraBordas(foto, b.amostras, {alcance, 0.5, nitidez, procura.primeira, junta}, b.bordas);
    esconde(encobrem, b);
    e = olha(b);
    b.deslocamentos.resize(b.bordas.size());
    for (std::size_t i = 0; i < b.bordas.size(); ++i) {
      b.deslocamentos[i] =
          b.bordas[i].desvio + b.amostras[i].curvatura * (e.desfoque - 1.0 / 3) / 2;
    }
    q = equacoes(foto, f, b.deslocamentos, std::max(0.15, 3 * e.espalha), b);
    const std::optional<VETOR> v = resolve(q, 0);
    if (!v) return std::nullopt;
    const double movida = move(f, *v);
    if (perdida(foto, f)) return std::nullopt;
    if (movida < parada && k >= 2) break;
    if (procura.primeira > 0) continue;
    nitidez = static_cast<int>(std::clamp(4 * std::sqrt(e.desfoque), 2.0, 12.0));
    junta = quantosJuntar(foto, e.rampa, b.bordas.size());
    alcance = std::clamp(std::max(2.5 * std::sqrt(e.desfoque), 0.15 * menorMetade(f)), 1.5, 6.0);
    alcance = std::min(alcance, std::max(1.5, 0.6 * menorMetade(f)));
  }
  m.rampa = e.rampa;
  m.residuo = e.espalha;
  m.vista = e.vista;
  m.quantas = e.quantas;
  if (!erros(q, junta, m)) return std::nullopt;
  return m;
}

}  // namespace

std::optional<MEDIDA> mede(const ANDAR& foto, const FIGURA& f, ENCOBREM encobrem, BANCADA& b) {
  return medeCom(foto, f, {std::clamp(0.25 * menorMetade(f), 1.5, 4.0)}, encobrem, b);
}

std::optional<MEDIDA> semSombra(const ANDAR& foto, const MEDIDA& m, ENCOBREM encobrem, BANCADA& b) {
  PROCURA procura{std::clamp(0.5 * menorMetade(m.figura), 2.5, 8.0)};
  procura.primeira = std::max(0.15 * m.rampa, 0.5 * foto.ruido);
  const std::optional<MEDIDA> s = medeCom(foto, m.figura, procura, encobrem, b);
  if (!s || area(s->figura) > 0.985 * area(m.figura) || s->vista < 0.85 * m.vista) return {};
  if (s->residuo > std::max(1.5 * m.residuo, 0.3)) return {};
  // The outlines meet on one side and are well apart on the other.
  amostra(s->figura, 64, b.amostras);
  const EIXOS e(m.figura);
  double juntos = 0;
  double longe = 0;
  for (const AMOSTRA& a : b.amostras) {
    if (!contem(m.figura, e, a.l + 0.5 * a.nl, a.c + 0.5 * a.nc)) juntos += 1;
    if (contem(m.figura, e, a.l + 1.0 * a.nl, a.c + 1.0 * a.nc)) longe += 1;
  }
  const auto n = static_cast<double>(b.amostras.size());
  if (juntos < 0.2 * n || longe < 0.15 * n) return {};
  return s;
}

std::optional<MEDIDA> medeMelhor(const ANDAR& foto, const FIGURA& f, std::string_view familias,
                                 ENCOBREM encobrem, BANCADA& b) {
  std::optional<MEDIDA> melhor;
  double menor = 0;
  const bool curva = f.forma == 'c' || f.forma == 'e';
  const double n = std::clamp(perimetro(f) / 3, 6.0, 60.0);
  const auto tenta = [&](char forma, double ang, double d1, double d2) {
    FIGURA g{forma, f.l, f.c, d1, d2, ang};
    if (forma == 'c' || forma == 'q') g.d1 = g.d2 = std::sqrt(d1 * d2);
    const std::optional<MEDIDA> m = mede(foto, g, encobrem, b);
    if (!m) return;
    double r2 = 0, w = 0;
    for (std::size_t i = 0; i < b.bordas.size(); ++i) {
      const BORDA& x = b.bordas[i];
      if (!x.visivel) continue;
      const double e = x.ha ? std::min(std::fabs(b.deslocamentos[i]), 2.0) : 2.0;
      r2 += b.amostras[i].arco * b.amostras[i].peso * e * e;
      w += b.amostras[i].arco * b.amostras[i].peso;
    }
    const double k = forma == 'c' ? 3 : forma == 'q' ? 4 : 5;
    const double nota = n * logaritmo(r2 / std::max(w, 1.0) + 0.05) + 1.25 * k * logaritmo(n);
    if (!melhor || nota < menor) {
      melhor = m;
      menor = nota;
    }
  };
  for (const char forma : familias) {
    const bool outraCurva = forma == 'c' || forma == 'e';
    // Equal areas; a side is sqrt(pi / 4) of an axis.
    const double k = outraCurva == curva ? 1 : outraCurva ? 1.1283791670955126 : 0.886226925452758;
    tenta(forma, f.ang, f.d1 * k, f.d2 * k);
    if (forma == 'c') continue;
    if (alongamento(f) < 1.3) {
      for (const double giro : {22.5, 45.0, 67.5}) {
        if (forma == 'q' || forma == 'r') tenta(forma, f.ang + giro, f.d1 * k, f.d2 * k);
        if (forma == 'e') tenta(forma, f.ang + giro * 2, f.d1 * k * 1.05, f.d2 * k / 1.05);
      }
    }
  }
  return melhor;
}

}  // namespace refine
