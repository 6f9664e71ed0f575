#include "refine/vizinhos.h"

#include <algorithm>
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

void pontosDentro(const FIGURA& f, std::vector<PONTO_NA_FOTO>& v) {
  v.clear();
  const EIXOS e(f);
  const auto poe = [&](double u, double w) {
    u *= f.d1 / 2;
    w *= f.d2 / 2;
    v.push_back({e.l + u * e.d.seno + w * e.d.cosseno, e.c + u * e.d.cosseno - w * e.d.seno});
  };
  constexpr int n = 8;
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < n; ++j) {
      double u = (2 * i + 1.0) / n - 1;
      double w = (2 * j + 1.0) / n - 1;
      if (f.forma == 'c' || f.forma == 'e') {
        // The square onto the disc, areas kept: radius the greater of both, angle in proportion.
        const double r = std::max(std::fabs(u), std::fabs(w));
        const bool deitado = std::fabs(u) >= std::fabs(w);
        const DIRECAO d = direcao(45 * (deitado ? w / u : u / w));
        const double sinal = (deitado ? u : w) < 0 ? -1 : 1;
        u = sinal * r * (deitado ? d.cosseno : d.seno);
        w = sinal * r * (deitado ? d.seno : d.cosseno);
      }
      poe(u, w);
    }
  }
}

}  // namespace refine
