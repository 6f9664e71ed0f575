#include "measure/incerteza/intervalo.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "measure/incerteza/reamostra.h"

namespace measure {
namespace {

using CAMPO = std::optional<double> DISTRIBUICAO::*;

// Sizes and their ratios, always above zero: their intervals reach as many times up as down.
constexpr std::array<CAMPO, 4> razoes = {&DISTRIBUICAO::media, &DISTRIBUICAO::desvio,
                                         &DISTRIBUICAO::uniformidade, &DISTRIBUICAO::curvatura};
constexpr std::array<CAMPO, 4> diferencas = {&DISTRIBUICAO::mediaPhi, &DISTRIBUICAO::selecao,
                                             &DISTRIBUICAO::assimetria, &DISTRIBUICAO::curtose};

// The 97.5 % point of Student's t over that of the normal distribution, linear in 1 / degrees of
// freedom between the points of its table.
double alargamento(double umPorGraus) {
  struct PONTO_DA_TABELA {
    double umPorGraus, t;
  };
  constexpr std::array<PONTO_DA_TABELA, 11> tabela = {{{0, 1.959964},
                                                       {1.0 / 30, 2.042272},
                                                       {1.0 / 20, 2.085963},
                                                       {1.0 / 15, 2.131450},
                                                       {1.0 / 10, 2.228139},
                                                       {1.0 / 8, 2.306004},
                                                       {1.0 / 6, 2.446912},
                                                       {1.0 / 4, 2.776445},
                                                       {1.0 / 3, 3.182446},
                                                       {1.0 / 2, 4.302653},
                                                       {1, 12.706205}}};
  const double x = std::clamp(umPorGraus, 0.0, 1.0);
  std::size_t i = 1;
  while (x > tabela[i].umPorGraus) ++i;
  const double passo = tabela[i].umPorGraus - tabela[i - 1].umPorGraus;
  const double t = (x - tabela[i - 1].umPorGraus) / passo;
  return (tabela[i - 1].t + t * (tabela[i].t - tabela[i - 1].t)) / tabela[0].t;
}

// 1 below the size, half at it, 0 above.
double abaixo(double tamanho, double d) {
  if (tamanho == d) return 0.5;
  return tamanho < d ? 1 : 0;
}

// The number that 95 % of `v` reach at most.
double quantil95(std::vector<double>& v) {
  const std::size_t k = (v.size() * 19 + 19) / 20 - 1;
  std::nth_element(v.begin(), v.begin() + static_cast<std::ptrdiff_t>(k), v.end());
  return v[k];
}

struct LIMITES {
  std::optional<double> de, ate;
};

// Of all replicates of one number; empty where it or one in twenty of them is, or has no ratio.
class AMOSTRA {
 public:
  void poe(const std::optional<double>& x) {
    if (x) v_.push_back(*x);
    ++todas_;
  }

  LIMITES porRazao(const std::optional<double>& x, double largura) const {
    if (!serve(x) || !(*x > 0)) return porDiferenca(x, largura);
    std::vector<double> r;
    for (const double y : v_) r.push_back(y > *x ? y / *x : y > 0 ? *x / y : infinito);
    const double vezes = 1 + largura * (quantil95(r) - 1);
    if (!std::isfinite(vezes)) return {};
    return {*x / vezes, *x * vezes};
  }

  LIMITES porDiferenca(const std::optional<double>& x, double largura) const {
    if (!serve(x)) return {};
    std::vector<double> r;
    for (const double y : v_) r.push_back(std::abs(y - *x));
    const double mais = largura * quantil95(r);
    return {*x - mais, *x + mais};
  }

 private:
  static constexpr double infinito = std::numeric_limits<double>::infinity();

  bool serve(const std::optional<double>& x) const { return x && v_.size() * 20 > todas_ * 19; }

  std::vector<double> v_;
  std::size_t todas_ = 0;
};

// The replicates of a distribution.
struct REPLICAS {
  std::array<AMOSTRA, percentis.size()> d;
  std::array<AMOSTRA, razoes.size()> razao;
  std::array<AMOSTRA, diferencas.size()> diferenca;
  std::vector<AMOSTRA> retida, passante;
};

void poe(REPLICAS& r, const DISTRIBUICAO& d, const std::vector<PENEIRA>& peneiras) {
  for (std::size_t i = 0; i < d.d.size(); ++i) r.d[i].poe(d.d[i]);
  for (std::size_t i = 0; i < razoes.size(); ++i) r.razao[i].poe(d.*razoes[i]);
  for (std::size_t i = 0; i < diferencas.size(); ++i) r.diferenca[i].poe(d.*diferencas[i]);
  for (std::size_t k = 0; k < peneiras.size(); ++k) {
    r.retida[k].poe(peneiras[k].retida);
    r.passante[k].poe(peneiras[k].passante);
  }
}

// As many terms of equal size as would say as much: (sum of z)^2 / sum of z^2, of Kish.
template <class TERMO>
double termosEfetivos(std::size_t n, const TERMO& termo) {
  double soma = 0;
  double quadrados = 0;
  for (std::size_t i = 0; i < n; ++i) {
    const double z = termo(i);
    soma += z;
    quadrados += z * z;
  }
  return quadrados > 0 ? soma * soma / quadrados : static_cast<double>(n);
}

// A part of the whole. Of what none was seen among n grains there may still be 3.7 / (n + 3.7), and
// that much less than all of what they all are: the end of the exact interval of a share 0 or 1.
LIMITES parte(LIMITES l, double efetivos) {
  if (!l.de || !l.ate) return {};
  const double nenhum = 3.7 / (efetivos + 3.7);
  return {std::max(0.0, std::min(*l.de, 1 - nenhum)), std::min(1.0, std::max(*l.ate, nenhum))};
}

// How many times as wide as its replicates say each interval is made. Student's t: the degrees of
// freedom are as many as the squares of the grains' shares in a number would be if they were equal
// (a few grains may have most of the weight), and the photographs less one as far as it is they
// that differ. And the variance of m photographs drawn among themselves is (m - 1) / m of the true
// one.
struct LARGURAS {
  std::array<double, percentis.size()> d{};
  double media = 1;
  double desvio = 1;
  double peneiras = 1;
};

double graosEfetivos(const CURVA& c) {
  return termosEfetivos(c.peso.size(), [&c](std::size_t i) { return c.peso[i]; });
}

LARGURAS larguras(const CURVA& c, const DISTRIBUICAO& d, const INTERVALOS& s) {
  const auto fotos = static_cast<double>(s.fotos);
  const double entre = s.fotos > 1 ? s.entreFotos * s.entreFotos / (fotos - 1) : 0;
  const auto dosGraus = [&](double graus) {
    return alargamento(1 / std::max(graus, 1.0) + entre) / std::sqrt(1 - s.entreFotos / fotos);
  };
  const auto de = [&](const auto& z) {
    const auto quadrado = [&](std::size_t i) { return z(i) * z(i); };
    return dosGraus(termosEfetivos(c.tamanho.size(), quadrado));
  };
  LARGURAS l;
  for (std::size_t k = 0; k < percentis.size(); ++k) {
    l.d[k] = de([&](std::size_t i) {
      return c.peso[i] * (abaixo(c.tamanho[i], *d.d[k]) - percentis[k] / 100.0);
    });
  }
  const auto x = [&](std::size_t i) { return c.tamanho[i] - *d.media; };
  l.media = de([&](std::size_t i) { return c.peso[i] * x(i); });
  l.desvio = de([&](std::size_t i) { return c.peso[i] * (x(i) * x(i) - *d.desvio * *d.desvio); });
  l.peneiras = dosGraus(graosEfetivos(c) - 1);
  return l;
}

void guarda(const LIMITES& l, std::optional<double>& de, std::optional<double>& ate) {
  de = l.de;
  ate = l.ate;
}

// A percentile is at least what a lower one is, and at most what a higher one is.
void emOrdem(INTERVALOS& s) {
  for (std::size_t i = 1; i < percentis.size(); ++i) {
    if (s.de.d[i] && s.de.d[i - 1]) s.de.d[i] = std::max(*s.de.d[i], *s.de.d[i - 1]);
  }
  for (std::size_t i = percentis.size() - 1; i > 0; --i) {
    if (s.ate.d[i] && s.ate.d[i - 1]) s.ate.d[i - 1] = std::min(*s.ate.d[i], *s.ate.d[i - 1]);
  }
}

// The ends of all numbers.
void conclui(INTERVALOS& s, const REPLICAS& r, const DISTRIBUICAO& d, const LARGURAS& l) {
  for (std::size_t i = 0; i < percentis.size(); ++i) {
    guarda(r.d[i].porRazao(d.d[i], l.d[i]), s.de.d[i], s.ate.d[i]);
  }
  emOrdem(s);
  for (std::size_t i = 0; i < razoes.size(); ++i) {
    const double largura = razoes[i] == &DISTRIBUICAO::desvio ? l.desvio : l.media;
    guarda(r.razao[i].porRazao(d.*razoes[i], largura), s.de.*razoes[i], s.ate.*razoes[i]);
  }
  for (std::size_t i = 0; i < diferencas.size(); ++i) {
    const CAMPO campo = diferencas[i];
    guarda(r.diferenca[i].porDiferenca(d.*campo, l.media), s.de.*campo, s.ate.*campo);
  }
}

void concluiPeneiras(INTERVALOS& s, const REPLICAS& r, const std::vector<PENEIRA>& p,
                     double largura, double efetivos) {
  for (std::size_t k = 0; k < p.size(); ++k) {
    const LIMITES retida = parte(r.retida[k].porDiferenca(p[k].retida, largura), efetivos);
    const LIMITES passante = parte(r.passante[k].porDiferenca(p[k].passante, largura), efetivos);
    guarda(retida, s.peneirasDe[k].retida, s.peneirasAte[k].retida);
    guarda(passante, s.peneirasDe[k].passante, s.peneirasAte[k].passante);
  }
}

REPLICAS sorteia(const URNA& u, UNIDADE unidade, const std::vector<double>& aberturas,
                 std::size_t quantas, std::uint32_t semente) {
  REPLICAS r;
  r.retida.resize(aberturas.empty() ? 0 : aberturas.size() + 1);
  r.passante.resize(r.retida.size());
  SORTEIO sorteio(semente);
  CURVA c;
  for (std::size_t k = 0; k < quantas; ++k) {
    reamostra(u, sorteio, c);
    poe(r, distribui(c, unidade), peneira(c, aberturas));
  }
  return r;
}

// What an interval has in common with the numbers, which are yet to come.
void semNumeros(INTERVALOS& s, std::size_t graos, std::vector<PENEIRA> peneiras) {
  for (PENEIRA& p : peneiras) p.retida = p.passante = std::nullopt;
  s.peneirasDe = s.peneirasAte = std::move(peneiras);
  s.de.graos = s.ate.graos = s.fotos = graos;
}

}  // namespace

std::size_t replicasUsuais(std::size_t graos) {
  return std::clamp<std::size_t>(10'000'000 / std::max<std::size_t>(graos, 1), 200, 1000);
}

INTERVALOS intervalos(const std::vector<MEDIDA>& v, UNIDADE unidade,
                      const std::vector<double>& aberturas, const MODO_DE_SORTEAR& modo) {
  INTERVALOS s;
  const CURVA c = curva(v);
  const std::vector<PENEIRA> peneiras = peneira(c, aberturas);
  semNumeros(s, v.size(), peneiras);
  if (v.size() < 2) return s;
  const URNA u = urna(v);
  s.fotos = u.comeco.size() - 1;
  s.entreFotos = u.entreFotos;
  const std::size_t quantas = modo.replicas > 0 ? modo.replicas : replicasUsuais(v.size());
  const REPLICAS r = sorteia(u, unidade, aberturas, quantas, modo.semente);
  const DISTRIBUICAO d = distribui(c, unidade);
  const LARGURAS l = larguras(c, d, s);
  conclui(s, r, d, l);
  concluiPeneiras(s, r, peneiras, l.peneiras, graosEfetivos(c));
  return s;
}

}  // namespace measure
