#include "refine/tracos.h"

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

}  // namespace

EXAME examina(const ANDAR& andar, const FIGURA& f, double correl, ENCOBREM encobrem, BANCADA& b) {
  std::vector<EIXOS> eixos;
  for (const FIGURA& g : encobrem) eixos.emplace_back(g);
  const auto oculto = [&](double l, double c) {
    for (std::size_t k = 0; k < eixos.size(); ++k) {
      if (refine::contem(encobrem[k], eixos[k], l, c)) return true;
    }
    return false;
  };
  EXAME x;
  TRACOS& t = x.tracos;
  amostra(f, amostrasDoExame, b.amostras);
  const double alcance = std::max(1.5, alcanceUsual(f) * 0.5);
  procuraBordas(andar, b.amostras, {alcance, 0.5}, b.bordas);
  if (!eixos.empty()) {
    // A neighbour's own edge is no business of this shape's: a little way out must be free too.
    for (std::size_t i = 0; i < b.bordas.size(); ++i) {
      const AMOSTRA& a = b.amostras[i];
      if (oculto(a.l + a.nl, a.c + a.nc)) b.bordas[i].visivel = false;
    }
  }

  double total = 0, visto = 0, vista = 0, forte = 0, escuro = 0, alinhados = 0, edges = 0, e2 = 0;
  std::array<double, 4> quarto{}, quartoVisto{};
  LISTA<amostrasDoExame> rampas, degraus, larguras;
  const std::size_t n = b.bordas.size();
  double falha = 0, maior = 0, primeira = -1;
  GREYS anel, nucleo;
  const EIXOS e(f);
  for (std::size_t i = 0; i < n; ++i) {
    const AMOSTRA& a = b.amostras[i];
    const BORDA& borda = b.bordas[i];
    total += a.arco;
    if (!borda.visivel) continue;
    visto += a.arco;
    const double u = e.u(a.l, a.c), v = e.v(a.l, a.c);
    const std::size_t q = (u >= 0 ? 0U : 1U) + (v >= 0 ? 0U : 2U);
    quartoVisto[q] += a.arco;
    rampas.poe(borda.ha ? borda.rampa : 0);
    degraus.poe(borda.fora - borda.dentro);
    escuro += borda.fora - borda.dentro > andar.ruido ? a.arco : 0;
    for (const double longe : {1.5, 1.5 + 0.2 * menorMetade(f)}) {
      const double l = a.l + longe * a.nl, c = a.c + longe * a.nc;
      if (andar.contem(l, c) && !oculto(l, c)) anel.poe(andar.em(l, c));
    }
    if (!borda.ha) {
      falha += a.arco;
      maior = std::max(maior, falha);
      continue;
    }
    if (primeira < 0) primeira = falha;
    falha = 0;
    vista += a.arco;
    quarto[q] += a.arco;
    forte += a.arco * std::min(1.0, borda.rampa / (3 * andar.ruido));
    larguras.poe(borda.largura2);
    e2 += a.arco * borda.desvio * borda.desvio;
    const double l = a.l + borda.desvio * a.nl, c = a.c + borda.desvio * a.nc;
    const double gl = andar.em(l + 1, c) - andar.em(l - 1, c);
    const double gc = andar.em(l, c + 1) - andar.em(l, c - 1);
    const double g = std::sqrt(gl * gl + gc * gc);
    if (g > 0) alinhados += a.arco * (gl * a.nl + gc * a.nc) / g;
    edges += a.arco;
  }
  if (visto <= 0) return x;
  rampas.ordena();
  degraus.ordena();
  larguras.ordena();
  if (primeira >= 0) maior = std::max(maior, falha + primeira);
  std::array<GREYS, 2> faixas;  // inner, outer
  porDentro(f, [&](double l, double c, int faixa) {
    if (!andar.contem(l, c) || oculto(l, c)) return;
    const float g = andar.em(l, c);
    nucleo.poe(g);
    if (faixa <= 1) faixas[0].poe(g);
    if (faixa == 3) faixas[1].poe(g);
  });
  const double dentro = nucleo.media(), fora = anel.media();
  const double contraste = fora - dentro;
  x.contraste = static_cast<float>(contraste);
  x.dentro = static_cast<float>(dentro);
  x.fora = static_cast<float>(fora);
  const double meio = (dentro + fora) / 2;
  const int escuros = nucleo.abaixo(meio);
  const int claros = anel.acima(meio);
  const double entre = contraste * contraste / 4;
  const double dentroDeles = (nucleo.variancia() + anel.variancia()) / 2;
  const double sep = contraste > 0 ? entre / (entre + dentroDeles + 1e-9) : 0;
  const double c0 = std::max(contraste, 0.01);

  t[bordaVista] = static_cast<float>(vista / visto);
  t[bordaVista2] = t[bordaVista] * t[bordaVista];
  t[bordaForte] = static_cast<float>(forte / visto);
  const float q75 = rampas.quantil(0.75);
  t[uniforme] = q75 > 0 ? rampas.quantil(0.25) / q75 : 0;
  t[escuroPorDentro] = static_cast<float>(escuro / visto);
  t[alinhada] = static_cast<float>(edges > 0 ? alinhados / edges : 0);
  const double rms = std::sqrt(edges > 0 ? e2 / edges : alcance * alcance);
  t[aspera] = static_cast<float>(rms / alcance);
  t[asperaRelativa] = static_cast<float>(rms / menorMetade(f));
  t[separacao] = static_cast<float>(sep);
  t[separacao2] = static_cast<float>(sep * sep);
  t[nucleoEscuro] = nucleo.n > 0 ? static_cast<float>(escuros) / static_cast<float>(nucleo.n) : 0;
  t[anelClaro] = anel.n > 0 ? static_cast<float>(claros) / static_cast<float>(anel.n) : 0;
  t[contrasteRuido] = static_cast<float>(limitado(contraste / andar.ruido, 0, 6));
  t[logContraste] = logSeguro(std::max(contraste, 0.002));
  t[logPerimetro] = logSeguro(perimetro(f) * std::ldexp(1.0, andar.nivel));
  t[logCorrelacao] = logSeguro(std::max(correl, 0.005));
  t[logRampa] = logSeguro((rampas.quantil(0.5) + 1e-4) / (andar.gradiente + 1e-3));
  t[logAlongamento] = logSeguro(alongamento(f));
  t[contrasteDesvio] = static_cast<float>(limitado(contraste / (andar.desvio + 1e-3), 0, 5));
  t[maiorFalha] = static_cast<float>(std::min(1.0, maior / visto));
  double pior = 1;
  for (std::size_t q = 0; q < 4; ++q) {
    if (quartoVisto[q] > 0.1 * total) pior = std::min(pior, quarto[q] / quartoVisto[q]);
  }
  t[piorQuarto] = static_cast<float>(pior);
  t[texturaDentro] = static_cast<float>(limitado(std::sqrt(nucleo.variancia()) / c0, 0, 2));
  t[texturaFora] = static_cast<float>(limitado(std::sqrt(anel.variancia()) / c0, 0, 2));
  const float md = degraus.quantil(0.5);
  t[degrauUniforme] =
      static_cast<float>(limitado(degraus.quantil(0.25) / std::max(0.01F, md), -1, 1));
  t[visivel] = static_cast<float>(visto / total);
  t[nitidez] = logSeguro(limitado(larguras.n == 0 ? 9 : larguras.quantil(0.5), 0.3, 30));
  t[centroEscuro] = static_cast<float>(limitado((fora - faixas[0].media()) / c0, -1, 2));
  t[beiraEscura] = static_cast<float>(limitado((fora - faixas[1].media()) / c0, -1, 2));
  t[ehQuadrado] = f.forma == 'q' ? 1 : 0;
  t[ehRetangulo] = f.forma == 'r' ? 1 : 0;
  t[ehElipse] = f.forma == 'e' ? 1 : 0;
  return x;
}

}  // namespace refine
