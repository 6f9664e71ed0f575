#include "refine/medida.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "refine/ajuste/molde.h"

namespace refine {

namespace {

constexpr int passos = 8;
constexpr double parada = 0.003;   // pixels
constexpr double passoFino = 0.5;  // of the profiles, pixels
constexpr double menorTolerancia = 0.15;
constexpr int alcanceDoErro =
    8;  // samples that may err alike: three times as far as the noise does

// About a pixel apart.
int quantasAmostras(const FIGURA& f) {
  return static_cast<int>(std::clamp(perimetro(f), 32.0, 400.0)) / 2 * 2;
}

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
  std::vector<float> larguras;
  std::vector<float> rampas;
  std::vector<float> longe;
  double visto = 0;
  double vista = 0;
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
  e.desfoque = std::clamp(static_cast<double>(mediana(larguras, 1)), 0.64 + doDeclive, 16.0);
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

// What no scatter tells, pixels; of the angle at the end of the longer half size.
constexpr double erroDeSempre = 0.02;
// Of the mould's own error, which allows for more shading than most grains have. Both from rendered
// scenes of known sizes.
constexpr double parteDoMolde = 0.6;

// Standard errors from the scatter of the edges about the contour and the error of the mould's
// place, which moves all edges outward or inward; false when they have none.
bool erros(const EQUACOES& q, const SISTEMA& dispersao, double doMolde, MEDIDA& m) {
  const std::optional<SISTEMA> c = covariancia(q, dispersao);
  if (!c) return false;
  // The unknowns took some of the scatter away.
  const double pedacos = m.quantas / ruidoIgual;
  const double sobram = pedacos / std::max(1.0, pedacos - q.n);
  const auto sigma = [&](int i, double sempre, double molde) {
    const auto k = static_cast<std::size_t>(i);
    return std::sqrt(std::max(0.0, (*c)[k][k]) * sobram + sempre * sempre + molde * molde);
  };
  const double dosTamanhos = 2 * parteDoMolde * doMolde;  // at both ends
  m.erro[0] = sigma(0, erroDeSempre, 0);
  m.erro[1] = sigma(1, erroDeSempre, 0);
  m.erro[2] = sigma(2, erroDeSempre, dosTamanhos);
  m.erro[3] = q.n == 5 ? sigma(3, erroDeSempre, dosTamanhos) : m.erro[2];
  const double braco = std::max(m.figura.d1, m.figura.d2) / 2;
  m.erro[4] = q.n == 3 ? 0 : sigma(q.n - 1, erroDeSempre / braco, 0) * (180 / std::numbers::pi);
  return true;
}

// How far from the contour edges of this blur are looked for, pixels.
double alcanceFino(double desfoque, const FIGURA& f) {
  const double a = std::clamp(std::max(2.5 * std::sqrt(desfoque), 0.15 * menorMetade(f)), 1.5, 6.0);
  return std::min(a, std::max(1.5, 0.6 * menorMetade(f)));
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
    amostra(f, quantasAmostras(f), b.amostras);
    procuraBordas(foto, b.amostras, {alcance, passoFino, nitidez, procura.primeira, junta},
                  b.bordas);
    esconde(encobrem, b);
    e = olha(b);
    b.deslocamentos.resize(b.bordas.size());
    for (std::size_t i = 0; i < b.bordas.size(); ++i) {
      b.deslocamentos[i] =
          b.bordas[i].desvio + b.amostras[i].curvatura * (e.desfoque - doDeclive) / 2;
    }
    q = equacoes(foto, f, b.deslocamentos, std::max(menorTolerancia, 3 * e.espalha), b);
    const std::optional<VETOR> v = resolve(q, 0);
    if (!v) return std::nullopt;
    const double movida = move(f, *v);
    if (perdida(foto, f)) return std::nullopt;
    if (movida < parada && k >= 2) break;
    if (procura.primeira > 0) continue;
    nitidez = static_cast<int>(std::clamp(4 * std::sqrt(e.desfoque), 2.0, 12.0));
    junta = quantosJuntar(foto, e.rampa, b.bordas.size());
    alcance = alcanceFino(e.desfoque, f);
  }
  m.rampa = e.rampa;
  m.desfoque = e.desfoque;
  m.residuo = e.espalha;
  m.vista = e.vista;
  m.quantas = e.quantas;
  const SISTEMA d = dispersao(foto, f, b.deslocamentos, std::max(menorTolerancia, 3 * e.espalha),
                              alcanceDoErro + 2 * junta, b);
  if (!erros(q, d, 0, m)) return std::nullopt;
  return m;
}

// How far in blurred edges are seen for each curvature: variance over 2, and less where the blur
// is a third as wide as the half size and more (from the exact blur of a disc).
double recuoPorCurvatura(double sigma, double metade) {
  const double q = sigma / metade * (sigma / metade);
  return sigma * sigma / 2 / (1 + 40 * q * q * q);
}

// A fit by the mould of the shape's own edges, from one step to the next.
struct AFINACAO {
  FIGURA f;
  MOLDE molde;
  double tolerancia;  // edges farther from the contour count less
  double rampa;       // median slope
  double residuo;     // median distance of the edges from the contour
};

// Samples, profiles and edges about the contour; wide enough for the mould at every edge.
void leBordas(const ANDAR& foto, const AFINACAO& a, int amostras, ENCOBREM encobrem, BANCADA& b) {
  const double sigma = a.molde.sigma;
  ALCANCE como{alcanceFino(sigma * sigma + doDeclive, a.f), passoFino};
  como.nitidez = static_cast<int>(std::clamp(4 * sigma, 2.0, 12.0));
  como.junta = quantosJuntar(foto, a.rampa, static_cast<std::size_t>(amostras));
  constexpr double maisLonge = 12;
  const double longe = std::min(maisLonge, std::max(como.alcance + 2 * sigma + 1, 3 * sigma + 1));
  const int pontos =
      std::max(passosDaBusca(como), static_cast<int>(std::lround(longe / passoFino)));
  amostra(a.f, amostras, b.amostras);
  lePerfis(foto, b.amostras, pontos, passoFino, b.perfis, b.bordas);
  esconde(encobrem, b);
  if (como.junta == 0) return achaBordas(foto, b.amostras, como, b.perfis, b.bordas);
  // The mould wants them as they are.
  PERFIS juntos = b.perfis;
  achaBordas(foto, b.amostras, como, juntos, b.bordas);
}

// The mould of the edges, and by it the place of each; false when they have none.
bool moldaBordas(AFINACAO& a, BANCADA& b) {
  std::vector<double> pesos(b.bordas.size());
  for (std::size_t i = 0; i < pesos.size(); ++i) {
    const double e = b.deslocamentos[i] / a.tolerancia;
    const bool serve = b.bordas[i].ha && b.amostras[i].peso >= 1;  // not where two edges meet
    pesos[i] = serve ? b.amostras[i].arco / (1 + e * e) : 0;
  }
  const double sigma = a.molde.sigma;
  const JANELA janela{std::min(2.3 * sigma + 1, 0.9 * menorMetade(a.f)), 2.5 * sigma + 1};
  const std::optional<MOLDE> molde = molda(b.perfis, pesos, janela, a.molde);
  if (!molde) return false;
  a.molde = *molde;
  deslocaPorMolde(b.perfis, a.molde, b.bordas, b.deslocamentos);
  const double recuo = recuoPorCurvatura(a.molde.sigma, menorMetade(a.f));
  std::vector<float> longe;
  for (std::size_t i = 0; i < b.bordas.size(); ++i) {
    b.deslocamentos[i] += b.amostras[i].curvatura * recuo;
    const bool conta = b.bordas[i].ha && b.amostras[i].peso >= 1;
    if (conta) longe.push_back(static_cast<float>(std::fabs(b.deslocamentos[i])));
  }
  a.residuo = mediana(longe, 1);
  a.tolerancia = std::max(menorTolerancia, 3 * a.residuo);
  return true;
}

// Fits the shape anew by the mould, which is steadier in noise than the steepest places and tells
// shading from edge; false when that can't be.
bool afina(const ANDAR& foto, ENCOBREM encobrem, MEDIDA& m, BANCADA& b) {
  constexpr int voltas = 4;
  AFINACAO a{m.figura, {}, std::max(menorTolerancia, 3 * m.residuo), m.rampa, m.residuo};
  a.molde.sigma = std::sqrt(std::max(0.64, m.desfoque - doDeclive));
  const int amostras = quantasAmostras(a.f);
  EQUACOES q;
  for (int k = 0; k < voltas; ++k) {
    leBordas(foto, a, amostras, encobrem, b);
    if (k == 0) {
      b.deslocamentos.clear();
      for (const BORDA& x : b.bordas) b.deslocamentos.push_back(x.desvio);
    }
    if (!moldaBordas(a, b)) return false;
    q = equacoes(foto, a.f, b.deslocamentos, a.tolerancia, b);
    const std::optional<VETOR> v = resolve(q, 0);
    if (!v) return false;
    const double movida = move(a.f, *v);
    if (perdida(foto, a.f)) return false;
    if (movida < parada && k >= 1) break;
  }
  m.figura = a.f;
  m.residuo = a.residuo;
  const SISTEMA d = dispersao(foto, a.f, b.deslocamentos, a.tolerancia, alcanceDoErro, b);
  return erros(q, d, a.molde.erro, m);
}

// By the mould where that can be, as it was where not.
MEDIDA afinada(const ANDAR& foto, const MEDIDA& m, ENCOBREM encobrem, BANCADA& b) {
  MEDIDA fina = m;
  return afina(foto, encobrem, fina, b) ? fina : m;
}

std::optional<MEDIDA> medePelosPicos(const ANDAR& foto, const FIGURA& f, ENCOBREM encobrem,
                                     BANCADA& b) {
  return medeCom(foto, f, {std::clamp(0.25 * menorMetade(f), 1.5, 4.0)}, encobrem, b);
}

}  // namespace

std::optional<MEDIDA> mede(const ANDAR& foto, const FIGURA& f, ENCOBREM encobrem, BANCADA& b) {
  const std::optional<MEDIDA> m = medePelosPicos(foto, f, encobrem, b);
  if (!m) return m;
  return afinada(foto, *m, encobrem, b);
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

namespace {

// An ellipse or rectangle whose sizes are as good as equal is a circle or square, if the edges lie
// about as near to that.
MEDIDA maisSimples(const ANDAR& foto, const MEDIDA& m, std::string_view familias, ENCOBREM encobrem,
                   BANCADA& b) {
  constexpr double erros = 2.5;  // apart, both sizes are surely not equal
  constexpr double quaseIguais = 0.025;
  constexpr double diferentes = 0.08;
  const char forma = m.figura.forma == 'e' ? 'c' : 'q';
  const bool duas = m.figura.forma == 'e' || m.figura.forma == 'r';
  if (!duas || familias.find(forma) == std::string_view::npos) return m;
  const double d = std::sqrt(m.figura.d1 * m.figura.d2);
  const double longe = std::fabs(m.figura.d1 - m.figura.d2);
  const double erro = std::sqrt(m.erro[2] * m.erro[2] + m.erro[3] * m.erro[3]);
  if (longe > std::min(diferentes * d, std::max(quaseIguais * d, erros * erro))) return m;
  const std::optional<MEDIDA> s = mede(
      foto, {forma, m.figura.l, m.figura.c, d, d, forma == 'c' ? 0 : m.figura.ang}, encobrem, b);
  return s && s->residuo <= 1.25 * m.residuo + 0.05 ? *s : m;
}

}  // namespace

namespace {

// How badly a family explains the edges just found, its parameters counting against it.
double notaDaFamilia(char forma, double n, const BANCADA& b) {
  double r2 = 0;
  double w = 0;
  for (std::size_t i = 0; i < b.bordas.size(); ++i) {
    const BORDA& x = b.bordas[i];
    if (!x.visivel) continue;
    const double e = x.ha ? std::min(std::fabs(b.deslocamentos[i]), 2.0) : 2.0;
    r2 += b.amostras[i].arco * b.amostras[i].peso * e * e;
    w += b.amostras[i].arco * b.amostras[i].peso;
  }
  const double k = forma == 'c' ? 3 : forma == 'q' ? 4 : 5;
  return n * logaritmo(r2 / std::max(w, 1.0) + 0.05) + 1.25 * k * logaritmo(n);
}

// Families that compete for the edges around a shape.
struct DISPUTA {
  const ANDAR& foto;
  FIGURA inicio;
  ENCOBREM encobrem;
  std::optional<MEDIDA> melhor;
  double menor = 0;
};

void tenta(DISPUTA& d, char forma, double giro, double d1, double d2, BANCADA& b) {
  const FIGURA& f = d.inicio;
  FIGURA g{forma, f.l, f.c, d1, d2, f.ang + giro};
  if (forma == 'c' || forma == 'q') g.d1 = g.d2 = std::sqrt(d1 * d2);
  const std::optional<MEDIDA> m = medePelosPicos(d.foto, g, d.encobrem, b);
  if (!m) return;
  const double nota = notaDaFamilia(forma, std::clamp(perimetro(f) / 3, 6.0, 60.0), b);
  if (d.melhor && nota >= d.menor) return;
  d.melhor = m;
  d.menor = nota;
}

// The family from a shape of equal area; round ones may lie at any angle.
void tentaFamilia(DISPUTA& d, char forma, BANCADA& b) {
  const FIGURA& f = d.inicio;
  const bool antes = f.forma == 'c' || f.forma == 'e';
  const bool curva = forma == 'c' || forma == 'e';
  // A side is sqrt(pi / 4) of an axis.
  const double k = curva == antes ? 1 : curva ? 1.1283791670955126 : 0.886226925452758;
  tenta(d, forma, 0, f.d1 * k, f.d2 * k, b);
  if (forma == 'c' || !(alongamento(f) < 1.3)) return;
  for (const double giro : {22.5, 45.0, 67.5}) {
    if (forma == 'e') {
      tenta(d, forma, 2 * giro, f.d1 * k * 1.05, f.d2 * k / 1.05, b);
    } else {
      tenta(d, forma, giro, f.d1 * k, f.d2 * k, b);
    }
  }
}

}  // namespace

std::optional<MEDIDA> medeMelhor(const ANDAR& foto, const FIGURA& f, std::string_view familias,
                                 ENCOBREM encobrem, BANCADA& b) {
  DISPUTA d{foto, f, encobrem, {}, 0};
  for (const char forma : familias) tentaFamilia(d, forma, b);
  if (!d.melhor) return d.melhor;
  return maisSimples(foto, afinada(foto, *d.melhor, encobrem, b), familias, encobrem, b);
}

}  // namespace refine
