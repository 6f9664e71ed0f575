#include "refine/tracos/tracos.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace refine {

namespace {

constexpr int amostrasDoExame = 32;

// A few numbers, at most `N`.
template <std::size_t N>
struct LISTA {
  std::array<float, N> v;
  std::size_t n = 0;

  void poe(float x) { v[n++] = x; }

  // Puts them in order: each goes where as many come before it. For so few that takes less time
  // than to compare and branch.
  void ordena() {
    const std::array<float, N> antes = v;
    std::array<int, N> lugar{};
    for (std::size_t j = 0; j < n; ++j) {
      const float x = antes[j];
      for (std::size_t i = 0; i < j; ++i) lugar[i] += x < antes[i] ? 1 : 0;
      for (std::size_t i = j + 1; i < n; ++i) lugar[i] += x <= antes[i] ? 1 : 0;
    }
    for (std::size_t i = 0; i < n; ++i) v[static_cast<std::size_t>(lugar[i])] = antes[i];
  }

  // The value below which the share `q` of the ordered lies.
  float quantil(double q) const {
    if (n == 0) return 0;
    return v[static_cast<std::size_t>(q * static_cast<double>(n - 1) + 0.5)];
  }
};

struct GREYS {
  double soma = 0;
  double quadrados = 0;
  int n = 0;
  LISTA<2 * amostrasDoExame> valores;

  void poe(float x) {
    soma += x;
    quadrados += double{x} * x;
    ++n;
    valores.poe(x);
  }
  double media() const { return n > 0 ? soma / n : 0; }
  double variancia() const { return n > 0 ? std::max(0.0, quadrados / n - media() * media()) : 0; }
  // How many are below `x`, and how many above it.
  int abaixo(double x) const {
    int k = 0;
    for (std::size_t i = 0; i < valores.n; ++i) k += valores.v[i] < x ? 1 : 0;
    return k;
  }
  int acima(double x) const {
    int k = 0;
    for (std::size_t i = 0; i < valores.n; ++i) k += valores.v[i] > x ? 1 : 0;
    return k;
  }
};

// A place inside, in half sizes along the shape's axes, and how far out: 0 to 3.
struct LUGAR {
  double u, v;
  int faixa;
};

std::vector<LUGAR> lugaresDaCurva() {
  constexpr std::array<double, 4> raios = {0.2, 0.45, 0.7, 0.88};
  constexpr std::array<int, 4> quantos = {4, 8, 12, 16};
  std::vector<LUGAR> v;
  for (std::size_t k = 0; k < raios.size(); ++k) {
    for (int i = 0; i < quantos[k]; ++i) {
      const DIRECAO d = direcao((i + 0.5) * 360 / quantos[k]);
      v.push_back({raios[k] * d.cosseno, raios[k] * d.seno, static_cast<int>(k)});
    }
  }
  return v;
}

std::vector<LUGAR> lugaresDoQuadrado() {
  std::vector<LUGAR> v;
  for (int i = -3; i <= 3; ++i) {
    for (int j = -3; j <= 3; ++j) {
      v.push_back({i * 0.29, j * 0.29, std::max(std::abs(i), std::abs(j))});
    }
  }
  return v;
}

template <class F>
void porDentro(const FIGURA& f, F visita) {
  static const std::vector<LUGAR> naCurva = lugaresDaCurva();
  static const std::vector<LUGAR> noQuadrado = lugaresDoQuadrado();
  const EIXOS e(f);
  for (const LUGAR& x : f.forma == 'c' || f.forma == 'e' ? naCurva : noQuadrado) {
    const double u = x.u * (f.d1 / 2);
    const double v = x.v * (f.d2 / 2);
    visita(e.l + u * e.d.seno + v * e.d.cosseno, e.c + u * e.d.cosseno - v * e.d.seno, x.faixa);
  }
}

float logSeguro(double x) {
  return static_cast<float>(logaritmo(std::max(x, 1e-4)));
}

double limitado(double x, double de, double ate) {
  return std::clamp(x, de, ate);
}

float razao(int parte, int todos) {
  return todos > 0 ? static_cast<float>(parte) / static_cast<float>(todos) : 0;
}

// What may hide part of the shape.
struct OCULTADORES {
  ENCOBREM figuras;
  std::vector<EIXOS> eixos;

  explicit OCULTADORES(ENCOBREM f) : figuras(f) {
    for (const FIGURA& g : figuras) eixos.emplace_back(g);
  }
  bool escondem(double l, double c) const {
    for (std::size_t k = 0; k < eixos.size(); ++k) {
      if (refine::contem(figuras[k], eixos[k], l, c)) return true;
    }
    return false;
  }
};

// Sums along the contour, each sample by the length that it stands for.
struct CONTORNO_VISTO {
  double total = 0;   // the whole outline
  double visto = 0;   // what is in sight of it
  double borda = 0;   // what has an edge
  double forte = 0;   // edges by their slope over the noise
  double escuro = 0;  // what is darker inside
  double alinhado = 0;
  double desvio2 = 0;  // squared distances of the edges
  std::array<double, 4> quarto{}, quartoVisto{};
  LISTA<amostrasDoExame> rampas, degraus, larguras;
  // Stretches without an edge: the one going on, the longest, and the one before the first edge.
  double falha = 0, maiorFalha = 0, primeiraFalha = -1;
};

// Cosine between the picture's slope at the edge and the contour's normal; 0 without a slope.
double alinhamento(const ANDAR& andar, const AMOSTRA& a, const BORDA& b) {
  const double l = a.l + b.desvio * a.nl;
  const double c = a.c + b.desvio * a.nc;
  const double gl = andar.em(l + 1, c) - andar.em(l - 1, c);
  const double gc = andar.em(l, c + 1) - andar.em(l, c - 1);
  const double g = std::sqrt(gl * gl + gc * gc);
  return g > 0 ? (gl * a.nl + gc * a.nc) / g : 0;
}

void poeBorda(const ANDAR& andar, const AMOSTRA& a, const BORDA& b, std::size_t quarto,
              CONTORNO_VISTO& s) {
  if (s.primeiraFalha < 0) s.primeiraFalha = s.falha;
  s.falha = 0;
  s.borda += a.arco;
  s.quarto[quarto] += a.arco;
  s.forte += a.arco * std::min(1.0, b.rampa / (3 * andar.ruido));
  s.larguras.poe(b.largura2);
  s.desvio2 += a.arco * b.desvio * b.desvio;
  s.alinhado += a.arco * alinhamento(andar, a, b);
}

CONTORNO_VISTO olhaContorno(const ANDAR& andar, const FIGURA& f, const BANCADA& b) {
  CONTORNO_VISTO s;
  const EIXOS e(f);
  for (std::size_t i = 0; i < b.bordas.size(); ++i) {
    const AMOSTRA& a = b.amostras[i];
    const BORDA& x = b.bordas[i];
    s.total += a.arco;
    if (!x.visivel) continue;
    s.visto += a.arco;
    const std::size_t quarto = (e.u(a.l, a.c) >= 0 ? 0U : 1U) + (e.v(a.l, a.c) >= 0 ? 0U : 2U);
    s.quartoVisto[quarto] += a.arco;
    s.rampas.poe(x.ha ? x.rampa : 0);
    s.degraus.poe(x.fora - x.dentro);
    s.escuro += x.fora - x.dentro > andar.ruido ? a.arco : 0;
    if (x.ha) {
      poeBorda(andar, a, x, quarto, s);
    } else {
      s.falha += a.arco;
      s.maiorFalha = std::max(s.maiorFalha, s.falha);
    }
  }
  // The contour has no beginning: the last stretch goes on as the first.
  if (s.primeiraFalha >= 0) s.maiorFalha = std::max(s.maiorFalha, s.falha + s.primeiraFalha);
  s.rampas.ordena();
  s.degraus.ordena();
  s.larguras.ordena();
  return s;
}

// Greys inside, all and those of the middle and near the outline, and around.
struct GREYS_VISTOS {
  GREYS nucleo, centro, beira, anel;
};

GREYS_VISTOS olhaGreys(const ANDAR& andar, const FIGURA& f, const OCULTADORES& o,
                       const BANCADA& b) {
  GREYS_VISTOS g;
  const auto aVista = [&](double l, double c) { return andar.contem(l, c) && !o.escondem(l, c); };
  for (std::size_t i = 0; i < b.bordas.size(); ++i) {
    if (!b.bordas[i].visivel) continue;
    const AMOSTRA& a = b.amostras[i];
    for (const double longe : {1.5, 1.5 + 0.2 * menorMetade(f)}) {
      const double l = a.l + longe * a.nl;
      const double c = a.c + longe * a.nc;
      if (aVista(l, c)) g.anel.poe(andar.em(l, c));
    }
  }
  porDentro(f, [&](double l, double c, int faixa) {
    if (!aVista(l, c)) return;
    const float x = andar.em(l, c);
    g.nucleo.poe(x);
    if (faixa <= 1) g.centro.poe(x);
    if (faixa == 3) g.beira.poe(x);
  });
  return g;
}

void tracosDoContorno(const ANDAR& andar, const FIGURA& f, const CONTORNO_VISTO& s, double alcance,
                      TRACOS& t) {
  t[bordaVista] = static_cast<float>(s.borda / s.visto);
  t[bordaVista2] = t[bordaVista] * t[bordaVista];
  t[bordaForte] = static_cast<float>(s.forte / s.visto);
  const float maiores = s.rampas.quantil(0.75);
  t[uniforme] = maiores > 0 ? s.rampas.quantil(0.25) / maiores : 0;
  t[escuroPorDentro] = static_cast<float>(s.escuro / s.visto);
  t[alinhada] = static_cast<float>(s.borda > 0 ? s.alinhado / s.borda : 0);
  const double rms = std::sqrt(s.borda > 0 ? s.desvio2 / s.borda : alcance * alcance);
  t[aspera] = static_cast<float>(rms / alcance);
  t[asperaRelativa] = static_cast<float>(rms / menorMetade(f));
  t[logRampa] = logSeguro((s.rampas.quantil(0.5) + 1e-4) / (andar.gradiente + 1e-3));
  t[maiorFalha] = static_cast<float>(std::min(1.0, s.maiorFalha / s.visto));
  double pior = 1;
  for (std::size_t q = 0; q < 4; ++q) {
    const bool conta = s.quartoVisto[q] > 0.1 * s.total;
    if (conta) pior = std::min(pior, s.quarto[q] / s.quartoVisto[q]);
  }
  t[piorQuarto] = static_cast<float>(pior);
  const float degrau = std::max(0.01F, s.degraus.quantil(0.5));
  t[degrauUniforme] = static_cast<float>(limitado(s.degraus.quantil(0.25) / degrau, -1, 1));
  t[visivel] = static_cast<float>(s.visto / s.total);
  t[nitidez] = logSeguro(limitado(s.larguras.n == 0 ? 9 : s.larguras.quantil(0.5), 0.3, 30));
}

void tracosDosGreys(const ANDAR& andar, const GREYS_VISTOS& g, TRACOS& t) {
  const double fora = g.anel.media();
  const double contraste = fora - g.nucleo.media();
  const double meio = (g.nucleo.media() + fora) / 2;
  const double entre = contraste * contraste / 4;
  const double dentroDeles = (g.nucleo.variancia() + g.anel.variancia()) / 2;
  const double separados = contraste > 0 ? entre / (entre + dentroDeles + 1e-9) : 0;
  const double divisor = std::max(contraste, 0.01);
  t[separacao] = static_cast<float>(separados);
  t[separacao2] = static_cast<float>(separados * separados);
  t[nucleoEscuro] = razao(g.nucleo.abaixo(meio), g.nucleo.n);
  t[anelClaro] = razao(g.anel.acima(meio), g.anel.n);
  t[contrasteRuido] = static_cast<float>(limitado(contraste / andar.ruido, 0, 6));
  t[logContraste] = logSeguro(std::max(contraste, 0.002));
  t[contrasteDesvio] = static_cast<float>(limitado(contraste / (andar.desvio + 1e-3), 0, 5));
  t[texturaDentro] = static_cast<float>(limitado(std::sqrt(g.nucleo.variancia()) / divisor, 0, 2));
  t[texturaFora] = static_cast<float>(limitado(std::sqrt(g.anel.variancia()) / divisor, 0, 2));
  t[centroEscuro] = static_cast<float>(limitado((fora - g.centro.media()) / divisor, -1, 2));
  t[beiraEscura] = static_cast<float>(limitado((fora - g.beira.media()) / divisor, -1, 2));
}

void tracosDaForma(const ANDAR& andar, const FIGURA& f, double correl, TRACOS& t) {
  t[logPerimetro] = logSeguro(perimetro(f) * std::ldexp(1.0, andar.nivel));
  t[logCorrelacao] = logSeguro(std::max(correl, 0.005));
  t[logAlongamento] = logSeguro(alongamento(f));
  t[ehQuadrado] = f.forma == 'q' ? 1 : 0;
  t[ehRetangulo] = f.forma == 'r' ? 1 : 0;
  t[ehElipse] = f.forma == 'e' ? 1 : 0;
}

}  // namespace

EXAME examina(const ANDAR& andar, const FIGURA& f, double correl, ENCOBREM encobrem, BANCADA& b) {
  const OCULTADORES o(encobrem);
  amostra(f, amostrasDoExame, b.amostras);
  const double alcance = std::max(1.5, alcanceUsual(f) * 0.5);
  procuraBordas(andar, b.amostras, {alcance, 0.5}, b.bordas);
  // A neighbour's own edge is no business of this shape's: a little way out must be free too.
  for (std::size_t i = 0; i < b.bordas.size() && !encobrem.empty(); ++i) {
    const AMOSTRA& a = b.amostras[i];
    if (o.escondem(a.l + a.nl, a.c + a.nc)) b.bordas[i].visivel = false;
  }
  EXAME x;
  const CONTORNO_VISTO contorno = olhaContorno(andar, f, b);
  if (contorno.visto <= 0) return x;
  const GREYS_VISTOS greys = olhaGreys(andar, f, o, b);
  x.dentro = static_cast<float>(greys.nucleo.media());
  x.fora = static_cast<float>(greys.anel.media());
  x.contraste = static_cast<float>(greys.anel.media() - greys.nucleo.media());
  tracosDoContorno(andar, f, contorno, alcance, x.tracos);
  tracosDosGreys(andar, greys, x.tracos);
  tracosDaForma(andar, f, correl, x.tracos);
  return x;
}

}  // namespace refine
