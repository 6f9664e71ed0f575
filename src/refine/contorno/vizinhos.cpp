#include "refine/contorno/vizinhos.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace refine {

namespace {

template <class F>
void porCela(const FIGURA& f, double lado, F visita) {
  const CAIXA caixa = meiaCaixa(f);
  const auto cela = [&](double x) { return static_cast<std::int64_t>(std::floor(x / lado)); };
  for (std::int64_t l = cela(f.l - caixa.altura); l <= cela(f.l + caixa.altura); ++l) {
    for (std::int64_t c = cela(f.c - caixa.largura); c <= cela(f.c + caixa.largura); ++c) {
      visita(static_cast<std::uint64_t>(l + (1LL << 30)) << 32U |
             static_cast<std::uint64_t>(c + (1LL << 30)));
    }
  }
}

}  // namespace

std::size_t VIZINHOS::poe(const FIGURA& f) {
  const std::size_t k = figuras.size();
  figuras.push_back(f);
  eixos.emplace_back(f);
  vale.push_back(true);
  porCela(f, lado, [&](std::uint64_t c) { celas[c].push_back(static_cast<std::uint32_t>(k)); });
  return k;
}

void VIZINHOS::perto(const FIGURA& f, std::vector<std::uint32_t>& v) const {
  v.clear();
  porCela(f, lado, [&](std::uint64_t c) {
    const auto achada = celas.find(c);
    if (achada == celas.end()) return;
    for (const std::uint32_t k : achada->second) {
      if (vale[k]) v.push_back(k);
    }
  });
  std::sort(v.begin(), v.end());
  v.erase(std::unique(v.begin(), v.end()), v.end());
}

namespace {

constexpr int pontosDeLado = 8;
constexpr std::size_t pontosAoTodo = pontosDeLado * pontosDeLado;

struct PONTO_PROPRIO {
  double u, v;
};
using PONTOS_PROPRIOS = std::array<PONTO_PROPRIO, pontosAoTodo>;

// A grid over the square from -1 to 1.
PONTOS_PROPRIOS noQuadrado() {
  PONTOS_PROPRIOS p{};
  for (std::size_t k = 0; k < p.size(); ++k) {
    const auto i = static_cast<double>(k / pontosDeLado);
    const auto j = static_cast<double>(k % pontosDeLado);
    p[k] = {(2 * i + 1) / pontosDeLado - 1, (2 * j + 1) / pontosDeLado - 1};
  }
  return p;
}

// The square onto the disc, areas kept: radius the greater of both, angle in proportion.
PONTOS_PROPRIOS noDisco() {
  PONTOS_PROPRIOS p = noQuadrado();
  for (PONTO_PROPRIO& x : p) {
    const double r = std::max(std::fabs(x.u), std::fabs(x.v));
    const bool deitado = std::fabs(x.u) >= std::fabs(x.v);
    const DIRECAO d = direcao(45 * (deitado ? x.v / x.u : x.u / x.v));
    const double raio = (deitado ? x.u : x.v) < 0 ? -r : r;
    x = {raio * (deitado ? d.cosseno : d.seno), raio * (deitado ? d.seno : d.cosseno)};
  }
  return p;
}

}  // namespace

void pontosDentro(const FIGURA& f, std::vector<PONTO_NA_FOTO>& v) {
  static const PONTOS_PROPRIOS quadrado = noQuadrado();
  static const PONTOS_PROPRIOS disco = noDisco();
  const EIXOS e(f);
  v.clear();
  for (const PONTO_PROPRIO& p : f.forma == 'c' || f.forma == 'e' ? disco : quadrado) {
    const double u = p.u * f.d1 / 2;
    const double w = p.v * f.d2 / 2;
    v.push_back({e.l + u * e.d.seno + w * e.d.cosseno, e.c + u * e.d.cosseno - w * e.d.seno});
  }
}

}  // namespace refine
