#include "measure/distribuicao.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <tuple>

#include "measure/folkward.h"

namespace measure {
namespace {

double soma(const std::vector<double>& v) {
  double s = 0;
  for (const double x : v) s += x;
  return s;
}

double mediaDe(const CURVA& c, double total) {
  double s = 0;
  for (std::size_t i = 0; i < c.tamanho.size(); ++i) s += c.peso[i] * c.tamanho[i];
  return std::clamp(s / total, c.tamanho.front(), c.tamanho.back());
}

double desvioDe(const CURVA& c, double total, double media) {
  double s = 0;
  for (std::size_t i = 0; i < c.tamanho.size(); ++i) {
    const double x = c.tamanho[i] - media;
    s += c.peso[i] * (x * x);
  }
  return std::sqrt(s / total);
}

// The standard error of the size, in px; of the diameter of equal area from those of both sizes,
// taken to be independent.
double erroDoTamanho(const GRAO& g, GRANDEZA grandeza) {
  const refine::FIGURA& f = g.figura;
  const std::array<double, 5>& erro = g.medido->erro;
  const bool umTamanho = f.forma == 'c' || f.forma == 'q';
  if (grandeza != GRANDEZA::equivalente) {
    const bool primeiro = umTamanho || (f.d1 >= f.d2) == (grandeza == GRANDEZA::maior);
    return erro[primeiro ? 2 : 3];
  }
  if (umTamanho) return g.equivalente * (erro[2] / f.d1);
  const double a = erro[2] / f.d1;
  const double b = erro[3] / f.d2;
  return g.equivalente * (std::sqrt(a * a + b * b) / 2);
}

}  // namespace

MEDIDA medida(const GRAO& g, const ESCALA& e, GRANDEZA grandeza, PESO peso) {
  MEDIDA m;
  if (g.medido) m.erro = comprimento(erroDoTamanho(g, grandeza), e);
  if (grandeza == GRANDEZA::equivalente) m.tamanho = comprimento(g.equivalente, e);
  if (grandeza == GRANDEZA::menor) m.tamanho = comprimento(g.menor, e);
  if (grandeza == GRANDEZA::maior) m.tamanho = comprimento(g.maior, e);
  if (peso == PESO::area) m.peso = area(g.area, e);
  if (peso == PESO::volume) {
    const double d = comprimento(g.equivalente, e);
    m.peso = std::numbers::pi / 6 * (d * d * d);
  }
  m.peso *= g.vezes;
  return m;
}

CURVA curva(std::vector<MEDIDA> v) {
  std::sort(v.begin(), v.end(), [](const MEDIDA& a, const MEDIDA& b) {
    return std::tie(a.tamanho, a.peso) < std::tie(b.tamanho, b.peso);
  });
  CURVA c;
  for (const MEDIDA& m : v) {
    c.tamanho.push_back(m.tamanho);
    c.peso.push_back(m.peso);
  }
  const double total = soma(c.peso);
  double abaixo = 0;
  for (const double w : c.peso) {
    c.acumulada.push_back((abaixo + w / 2) / total);
    abaixo += w;
  }
  return c;
}

std::optional<double> percentil(const CURVA& c, double p) {
  if (c.tamanho.empty()) return std::nullopt;
  const double alvo = p / 100;
  const auto acima = std::lower_bound(c.acumulada.begin(), c.acumulada.end(), alvo);
  if (acima == c.acumulada.begin()) return c.tamanho.front();
  if (acima == c.acumulada.end()) return c.tamanho.back();
  const auto i = static_cast<std::size_t>(acima - c.acumulada.begin());
  const double t = (alvo - c.acumulada[i - 1]) / (c.acumulada[i] - c.acumulada[i - 1]);
  return std::lerp(c.tamanho[i - 1], c.tamanho[i], t);
}

DISTRIBUICAO distribui(const CURVA& c, UNIDADE unidade) {
  DISTRIBUICAO d;
  d.graos = c.tamanho.size();
  if (d.graos == 0) return d;
  for (std::size_t i = 0; i < percentis.size(); ++i) d.d[i] = percentil(c, percentis[i]);
  const double total = soma(c.peso);
  d.media = mediaDe(c, total);
  d.desvio = desvioDe(c, total, *d.media);
  const double mm = milimetros(unidade);
  const FOLKWARD f = folkWard([&](int p) { return *valorD(d, p) * mm; });
  d.mediaPhi = f.media;
  d.selecao = f.selecao;
  d.assimetria = f.assimetria;
  d.curtose = f.curtose;
  const double d10 = *valorD(d, 10);
  const double d30 = *valorD(d, 30);
  const double d60 = *valorD(d, 60);
  d.uniformidade = d60 / d10;
  d.curvatura = d30 * d30 / (d10 * d60);
  return d;
}

std::optional<double> valorD(const DISTRIBUICAO& d, int p) {
  const auto* i = std::find(percentis.begin(), percentis.end(), p);
  return i == percentis.end() ? std::nullopt : d.d[static_cast<std::size_t>(i - percentis.begin())];
}

}  // namespace measure
