#include "examples/avaliacao.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>

namespace {

struct PAR {
  double iou;
  int verdade;
  int deteccao;
};

double razao(double a, double b) {
  return b > 0 ? a / b : 0;
}

double mediana(std::vector<double> v) {
  if (v.empty()) return 0;
  const auto meio = static_cast<std::ptrdiff_t>(v.size() / 2);
  std::nth_element(v.begin(), v.begin() + meio, v.end());
  const double acima = v[static_cast<std::size_t>(meio)];
  if (v.size() % 2 == 1) return acima;
  return (acima + *std::max_element(v.begin(), v.begin() + meio)) / 2;
}

// The true grains by row, so that a detection is compared only with those about it.
struct INDICE {
  std::vector<int> ordem;
  const std::vector<GRAO>& graos;
  double alcance = 0;  // of the largest grain, from its centre

  explicit INDICE(const std::vector<GRAO>& v) : ordem(v.size()), graos(v) {
    std::iota(ordem.begin(), ordem.end(), 0);
    std::stable_sort(ordem.begin(), ordem.end(),
                     [&](int a, int b) { return grao(a).linha < grao(b).linha; });
    for (const GRAO& g : v) alcance = std::max(alcance, raio(g));
  }

  const GRAO& grao(int i) const { return graos[static_cast<std::size_t>(i)]; }

  static double raio(const GRAO& g) { return std::hypot(g.d1, g.d2) / 2; }

  template <class ACAO>
  void perto(const GRAO& d, ACAO acao) const {
    const double longe = raio(d) + alcance;
    auto p = std::lower_bound(ordem.begin(), ordem.end(), d.linha - longe,
                              [&](int i, double linha) { return grao(i).linha < linha; });
    for (; p != ordem.end() && grao(*p).linha <= d.linha + longe; ++p) {
      if (std::abs(grao(*p).coluna - d.coluna) <= longe) acao(*p);
    }
  }
};

}  // namespace

double iou(const GRAO& a, const GRAO& b) {
  const FIGURA fa(a);
  const FIGURA fb(b);
  const cv::Rect r = fa.caixa() | fb.caixa();
  int ambos = 0;
  int algum = 0;
  for (int l = r.y; l < r.y + r.height; ++l) {
    for (int c = r.x; c < r.x + r.width; ++c) {
      const bool emA = fa.dentro(l, c);
      const bool emB = fb.dentro(l, c);
      ambos += static_cast<int>(emA && emB);
      algum += static_cast<int>(emA || emB);
    }
  }
  return razao(ambos, algum);
}

std::vector<int> casa(const std::vector<GRAO>& verdade, const std::vector<GRAO>& deteccoes,
                      double minimo) {
  std::vector<PAR> pares;
  const INDICE indice(verdade);
  for (std::size_t d = 0; d < deteccoes.size(); ++d) {
    indice.perto(deteccoes[d], [&](int v) {
      const double x = iou(indice.grao(v), deteccoes[d]);
      if (x >= minimo) pares.push_back({x, v, static_cast<int>(d)});
    });
  }
  std::stable_sort(pares.begin(), pares.end(),
                   [](const PAR& a, const PAR& b) { return a.iou > b.iou; });
  std::vector<int> par(deteccoes.size(), -1);
  std::vector<bool> usado(verdade.size(), false);
  for (const PAR& p : pares) {
    const auto v = static_cast<std::size_t>(p.verdade);
    int& destino = par[static_cast<std::size_t>(p.deteccao)];
    if (usado[v] || destino >= 0) continue;
    usado[v] = true;
    destino = p.verdade;
  }
  return par;
}

AVALIACAO avalia(const std::vector<GRAO>& verdade, const std::vector<GRAO>& deteccoes,
                 const std::vector<int>& par) {
  AVALIACAO a;
  for (const GRAO& g : verdade) ++a.familias[g.forma].verdade;
  std::vector<double> erros;
  for (std::size_t d = 0; d < deteccoes.size(); ++d) {
    ++a.familias[deteccoes[d].forma].deteccoes;
    if (par[d] < 0) continue;
    const GRAO& g = verdade[static_cast<std::size_t>(par[d])];
    CONTAGEM& familia = a.familias[g.forma];
    ++familia.achados;
    if (g.forma == deteccoes[d].forma) ++familia.letra;
    erros.push_back(std::abs(diametro(deteccoes[d]) / diametro(g) - 1));
  }
  a.erroDiametro = mediana(erros);
  for (const auto& [forma, familia] : a.familias) {
    a.total.verdade += familia.verdade;
    a.total.deteccoes += familia.deteccoes;
    a.total.achados += familia.achados;
    a.total.letra += familia.letra;
  }
  return a;
}

double AVALIACAO::precisao() const {
  return razao(total.achados, total.deteccoes);
}

double AVALIACAO::revocacao() const {
  return razao(total.achados, total.verdade);
}

double AVALIACAO::f1() const {
  return razao(2.0 * total.achados, total.deteccoes + total.verdade);
}

double AVALIACAO::letrasCertas() const {
  return razao(total.letra, total.achados);
}
