#include "motor/termos/escolha.h"

#include <algorithm>
#include <limits>
#include <map>

namespace motor {
namespace {

// Bounds the planes that unusual kernels may ask for: shapes of up to 500 px take six at most.
constexpr std::size_t maximoDeEscadas = 8;
// What making a plane costs, in terms of one kernel: at least 24, and more for tall kernels, whose
// planes don't fit the caches, one for every four rows.
constexpr int menorCustoDoPlano = 24;
constexpr int linhasPorTermo = 4;
// Rows of the longest period looked for. Sides of shapes of up to 500 px have none beyond 26 that
// saves anything: their planes are themselves made of as many terms.
constexpr std::size_t maiorAltura = 32;
// Rows of the longest period with deviations. With twice as many, kernels of 120 to 240 px take
// some 5 % less time and kernels of 20 to 30 px as much more.
constexpr std::size_t maiorComDesvio = 3;
// Patterns that are tried, each of which goes over all sides of the group. No pattern that fewer
// ends follow has been seen to pay.
constexpr std::size_t maximoDeCandidatas = 16;

std::vector<int> passosDoLado(const LADO& lado) {
  std::vector<int> passos;
  for (std::size_t i = 1; i < lado.coluna.size(); ++i) {
    passos.push_back(lado.coluna[i] - lado.coluna[i - 1]);
  }
  return passos;
}

// The rotation of a period that stands last in dictionary order, so that equal staircases are told
// whatever row they were found at.
std::vector<int> rotacaoMaior(std::vector<int> passos) {
  std::vector<int> maior = passos;
  for (std::size_t k = 1; k < passos.size(); ++k) {
    std::rotate(passos.begin(), passos.begin() + 1, passos.end());
    maior = std::max(maior, passos);
  }
  return maior;
}

bool temPeriodoMenor(const std::vector<int>& passos) {
  for (std::size_t k = 1; k < passos.size(); ++k) {
    if (passos.size() % k == 0 &&
        std::equal(passos.begin() + static_cast<std::ptrdiff_t>(k), passos.end(), passos.begin())) {
      return true;
    }
  }
  return false;
}

// How many ends follow a pattern of steps: the more, the better worth a try.
using CHANCES = std::map<std::vector<int>, int>;

// The longest stretch of steps that repeats with period `n`, when it holds two periods at least.
void notaPeriodo(const std::vector<int>& passos, std::size_t n, CHANCES& chances) {
  std::size_t fimDoMaior = 0;
  std::size_t maior = 0;
  std::size_t atual = 0;
  for (std::size_t i = n; i < passos.size(); ++i) {
    atual = passos[i] == passos[i - n] ? atual + 1 : 0;
    if (atual > maior) {
      maior = atual;
      fimDoMaior = i + 1;
    }
  }
  if (maior < n) return;
  const auto fim = passos.begin() + static_cast<std::ptrdiff_t>(fimDoMaior);
  const std::vector<int> periodo(fim - static_cast<std::ptrdiff_t>(n), fim);
  if (!temPeriodoMenor(periodo)) chances[rotacaoMaior(periodo)] += static_cast<int>(maior + n);
}

CHANCES chancesDosLados(const std::vector<LADO>& lados) {
  CHANCES chances;
  for (const LADO& lado : lados) {
    const std::vector<int> passos = passosDoLado(lado);
    for (const int p : passos) ++chances[{p}];
    for (std::size_t n = 2; n <= maiorAltura && 2 * n <= passos.size(); ++n) {
      notaPeriodo(passos, n, chances);
    }
  }
  return chances;
}

// The patterns that most ends follow, the likeliest first; those of fewer than `menor` are left
// out.
std::vector<std::vector<int>> candidatas(const std::vector<LADO>& lados, int menor) {
  std::vector<std::pair<int, std::vector<int>>> lista;
  for (const auto& [passos, extremos] : chancesDosLados(lados)) {
    if (extremos > menor) lista.emplace_back(extremos, passos);
  }
  std::stable_sort(lista.begin(), lista.end(),
                   [](const auto& a, const auto& b) { return a.first > b.first; });
  lista.resize(std::min(lista.size(), maximoDeCandidatas));
  std::vector<std::vector<int>> padroes;
  padroes.reserve(lista.size());
  for (auto& [extremos, passos] : lista) padroes.push_back(std::move(passos));
  return padroes;
}

int custoDoPlano(const std::vector<LADO>& lados) {
  std::size_t linhas = 0;
  for (const LADO& lado : lados) linhas = std::max(linhas, lado.coluna.size());
  return std::max(menorCustoDoPlano, static_cast<int>(linhas) / linhasPorTermo);
}

// What the sides cost in terms, with the planes that serve them. Those of long periods are made of
// several terms themselves.
int custoCom(const std::vector<LADO>& lados, const std::vector<ESCADA>& escadas, int plano) {
  int total = custoDosLados(lados, escadas);
  for (const ESCADA& e : escadas) {
    total += plano * (e.desvia ? 2 : 1) + (e.altura() > 1 ? e.altura() : 0);
  }
  return total;
}

// A staircase that may be added, or whose plane for deviations may be, and what that saved when it
// was last tried.
struct TENTATIVA {
  ESCADA escada;
  int ganho;
};

// The staircases with `nova` added or put in the place of its like without deviations.
std::vector<ESCADA> com(std::vector<ESCADA> escadas, const ESCADA& nova) {
  const auto igual = std::find_if(escadas.begin(), escadas.end(),
                                  [&](const ESCADA& e) { return e.passos == nova.passos; });
  if (igual == escadas.end()) {
    escadas.push_back(nova);
  } else {
    igual->desvia = igual->desvia || nova.desvia;
  }
  return escadas;
}

}  // namespace

std::vector<ESCADA> escolheEscadas(const std::vector<LADO>& lados, const pim::PAUSA& pausa) {
  const int plano = custoDoPlano(lados);
  constexpr int semTentar = std::numeric_limits<int>::max();
  std::vector<TENTATIVA> tentativas;
  for (const std::vector<int>& passos : candidatas(lados, plano)) {
    tentativas.push_back({{passos, false}, semTentar});
    if (passos.size() <= maiorComDesvio) tentativas.push_back({{passos, true}, semTentar});
  }
  std::vector<ESCADA> escolhidas;
  int custo = custoCom(lados, escolhidas, plano);
  const auto menos = [](const TENTATIVA& a, const TENTATIVA& b) { return a.ganho < b.ganho; };
  // What a staircase saves mostly shrinks as others are taken: one that still saves as much as any
  // other did at its last try is taken, and the others need no new try.
  while (!tentativas.empty() && escolhidas.size() < maximoDeEscadas) {
    if (pausa) pausa();
    const auto maior = std::max_element(tentativas.begin(), tentativas.end(), menos);
    if (maior->ganho <= 0) break;
    const std::vector<ESCADA> tentada = com(escolhidas, maior->escada);
    const int este = custoCom(lados, tentada, plano);
    maior->ganho = custo - este;
    const auto rival = std::max_element(tentativas.begin(), tentativas.end(), menos);
    if (maior->ganho <= 0 || rival->ganho > maior->ganho) continue;
    custo = este;
    escolhidas = tentada;
    tentativas.erase(maior);
  }
  std::stable_sort(escolhidas.begin(), escolhidas.end(),
                   [](const ESCADA& a, const ESCADA& b) { return a.altura() < b.altura(); });
  return escolhidas;
}

}  // namespace motor
