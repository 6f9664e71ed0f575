#include "refine/escolha.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "refine/amostras.h"
#include "refine/vizinhos.h"

namespace refine {

namespace {

struct MESA {
  std::vector<PONTO_NA_FOTO> pontos;
  std::vector<std::uint32_t> perto;
  std::vector<AMOSTRA> amostras;
  std::vector<int> cobertos;
};

bool cabe(const FIGURA& f, const VIZINHOS& aceitos, const REGRAS& r, MESA& m) {
  aceitos.perto(f, m.perto);
  if (m.perto.empty()) return true;
  pontosDentro(f, m.pontos);
  m.cobertos.assign(m.perto.size(), 0);
  int algum = 0;
  for (const PONTO_NA_FOTO& p : m.pontos) {
    bool coberto = false;
    for (std::size_t i = 0; i < m.perto.size(); ++i) {
      const std::size_t k = m.perto[i];
      if (!contem(aceitos.figuras[k], aceitos.eixos[k], p.l, p.c)) continue;
      ++m.cobertos[i];
      coberto = true;
    }
    algum += coberto ? 1 : 0;
  }
  const auto n = static_cast<double>(m.pontos.size());
  if (algum > r.sobreposicao * n) return false;
  for (std::size_t i = 0; i < m.perto.size(); ++i) {
    const double comum = m.cobertos[i] / n * area(f);
    if (comum > r.sobreposicao * area(aceitos.figuras[m.perto[i]])) return false;
  }
  if (algum == 0) return true;
  amostra(f, 32, m.amostras);
  double livre = 0;
  double total = 0;
  for (const AMOSTRA& a : m.amostras) {
    total += a.arco;
    const double l = a.l - 1.5 * a.nl;
    const double c = a.c - 1.5 * a.nc;
    const bool coberto = std::any_of(m.perto.begin(), m.perto.end(), [&](std::uint32_t k) {
      return contem(aceitos.figuras[k], aceitos.eixos[k], l, c) &&
             contem(aceitos.figuras[k], aceitos.eixos[k], a.l + 1.5 * a.nl, a.c + 1.5 * a.nc);
    });
    livre += coberto ? 0 : a.arco;
  }
  return livre >= r.contornoLivre * total;
}

}  // namespace

std::vector<std::size_t> escolhe(const std::vector<FIGURA>& figuras,
                                 const std::vector<double>& notas, const REGRAS& regras) {
  std::vector<std::size_t> ordem(figuras.size());
  std::iota(ordem.begin(), ordem.end(), std::size_t{0});
  std::sort(ordem.begin(), ordem.end(), [&](std::size_t a, std::size_t b) {
    return notas[a] != notas[b] ? notas[a] > notas[b] : a < b;
  });
  VIZINHOS aceitos(32);
  std::vector<std::size_t> escolhidos;
  MESA mesa;
  for (const std::size_t k : ordem) {
    if (!(notas[k] > regras.menorNota)) break;
    if (!cabe(figuras[k], aceitos, regras, mesa)) continue;
    aceitos.poe(figuras[k]);
    escolhidos.push_back(k);
  }
  return escolhidos;
}

}  // namespace refine
