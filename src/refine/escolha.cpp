#include "refine/escolha.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "refine/contorno/amostras.h"
#include "refine/contorno/vizinhos.h"

namespace refine {

namespace {

struct MESA {
  std::vector<PONTO_NA_FOTO> pontos;
  std::vector<std::uint32_t> perto;
  std::vector<AMOSTRA> amostras;
  std::vector<int> cobertos;
};

// Whether there is room for the shape among the accepted ones but for number `menos`.
constexpr std::uint32_t nenhum = 0xFFFFFFFF;
bool cabe(const FIGURA& f, const VIZINHOS& aceitos, const REGRAS& r, MESA& m,
          std::uint32_t menos = nenhum) {
  aceitos.perto(f, m.perto);
  std::erase(m.perto, menos);
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

// Shapes being chosen: which are accepted, and where.
struct ESCOLHA {
  const std::vector<FIGURA>& figuras;
  const std::vector<double>& notas;
  const REGRAS& regras;
  VIZINHOS aceitos{32};
  std::vector<std::size_t> quem;  // number of the shape, for each place in `aceitos`
  MESA mesa;

  std::uint32_t aceita(std::size_t k) {
    quem.push_back(k);
    return static_cast<std::uint32_t>(aceitos.poe(figuras[k]));
  }
};

// Shapes that would have room but for the accepted one `lugar`, and leave each other room, best
// first; they are accepted while it is being found out, so it must be taken out before.
std::vector<std::uint32_t> noLugarDe(ESCOLHA& e, const std::vector<std::size_t>& recusados) {
  std::vector<std::uint32_t> novos;
  for (const std::size_t k : recusados) {
    if (cabe(e.figuras[k], e.aceitos, e.regras, e.mesa)) novos.push_back(e.aceita(k));
  }
  return novos;
}

// One shape laid over several grains keeps them all out: where two or more refused ones together
// have a better score than the one in their way, they take its place.
void troca(ESCOLHA& e, const std::vector<std::size_t>& ordem) {
  constexpr double menorNotaNova = -0.5;
  VIZINHOS todos(32);
  std::vector<std::size_t> quais;
  for (const std::size_t k : ordem) {
    if (e.notas[k] < menorNotaNova) break;
    todos.poe(e.figuras[k]);
    quais.push_back(k);
  }
  const std::size_t n = e.quem.size();
  std::vector<std::uint32_t> perto;
  for (std::uint32_t lugar = 0; lugar < n; ++lugar) {
    const std::size_t velha = e.quem[lugar];
    const FIGURA& f = e.figuras[velha];
    const EIXOS eixos(f);
    todos.perto(f, perto);
    std::vector<std::size_t> recusados;
    for (const std::uint32_t i : perto) {
      const FIGURA& g = e.figuras[quais[i]];
      if (quais[i] != velha && area(g) < 0.8 * area(f) && contem(f, eixos, g.l, g.c)) {
        recusados.push_back(quais[i]);
      }
    }
    if (recusados.size() < 2) continue;
    e.aceitos.tira(lugar);
    const std::vector<std::uint32_t> novos = noLugarDe(e, recusados);
    double soma = 0;
    for (const std::uint32_t i : novos) soma += e.notas[e.quem[i]];
    if (novos.size() >= 2 && soma > e.notas[velha]) continue;
    for (const std::uint32_t i : novos) e.aceitos.tira(i);
    e.aceitos.vale[lugar] = true;
  }
}

}  // namespace

std::vector<std::size_t> escolhe(const std::vector<FIGURA>& figuras,
                                 const std::vector<double>& notas, const REGRAS& regras) {
  std::vector<std::size_t> ordem(figuras.size());
  std::iota(ordem.begin(), ordem.end(), std::size_t{0});
  std::sort(ordem.begin(), ordem.end(), [&](std::size_t a, std::size_t b) {
    return notas[a] != notas[b] ? notas[a] > notas[b] : a < b;
  });
  ESCOLHA e{figuras, notas, regras, VIZINHOS(32), {}, {}};
  const auto poe = [&](double menorNota) {
    for (const std::size_t k : ordem) {
      if (!(notas[k] > menorNota)) break;
      if (cabe(figuras[k], e.aceitos, regras, e.mesa)) e.aceita(k);
    }
  };
  poe(regras.notaDeTroca);
  troca(e, ordem);
  poe(regras.menorNota);
  std::vector<std::size_t> escolhidos;
  for (std::size_t i = 0; i < e.quem.size(); ++i) {
    if (e.aceitos.vale[i]) escolhidos.push_back(e.quem[i]);
  }
  return escolhidos;
}

}  // namespace refine
