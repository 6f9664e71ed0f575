#include "detect/ordenacao.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <utility>

#include "detect/vizinhanca.h"
#include "pim/erro.h"

namespace {

using POSICAO = std::ptrdiff_t;

constexpr std::size_t itensPorPausa = 1
                                      << 16;  // some milliseconds of ordering or of looking near by

// What the sort moves about in place of a whole record.
struct CHAVE {
  float correl;
  std::uint32_t original;  // where the record stood
};

// Hoare's partition of v[l..r] about the correlation of its middle element. Returns (j, i): then
// l..j hold the better part and i..r the worse, each to be sorted on its own.
std::pair<POSICAO, POSICAO> separa(CHAVE* v, POSICAO l, POSICAO r) {
  const float pivo = v[(l + r) / 2].correl;
  POSICAO i = l;
  POSICAO j = r;
  do {
    while (v[i].correl > pivo) ++i;
    while (v[j].correl < pivo) --j;
    if (i <= j) std::swap(v[i++], v[j--]);
  } while (i <= j);
  return {j, i};
}

// Sorts v[l..r]. The two parts of a partition never meet again, so the smaller may go first: the
// result is the same and the depth stays below the logarithm of the length.
void ordenaFaixa(CHAVE* v, POSICAO l, POSICAO r, const pim::PAUSA& pausa) {
  while (l < r) {
    if (r - l > static_cast<POSICAO>(itensPorPausa) && pausa) pausa();
    const auto [j, i] = separa(v, l, r);
    if (j - l < r - i) {
      ordenaFaixa(v, l, j, pausa);
      l = i;
    } else {
      ordenaFaixa(v, i, r, pausa);
      r = j;
    }
  }
}

// Brings the records to the places that the sorted keys give them.
void permuta(std::vector<MAXLOCAL>& v, int l, const std::vector<CHAVE>& chaves) {
  std::vector<MAXLOCAL> ordenados;
  ordenados.reserve(chaves.size());
  const MAXLOCAL* origem = v.data() + l;
  for (const CHAVE& chave : chaves) ordenados.push_back(origem[chave.original]);
  if (ordenados.size() == v.size()) {
    v.swap(ordenados);
  } else {
    std::copy(ordenados.begin(), ordenados.end(), v.begin() + l);
  }
}

// The kept records by increasing column, those of one column in the order in which they were kept.
std::vector<MAXLOCAL> porColuna(const std::vector<MAXLOCAL>& mantidos) {
  struct POSTO {
    int ci;
    std::uint32_t ordem;
  };
  std::vector<POSTO> postos;
  postos.reserve(mantidos.size());
  for (const MAXLOCAL& m : mantidos) {
    postos.push_back({m.ci, static_cast<std::uint32_t>(postos.size())});
  }
  std::sort(postos.begin(), postos.end(), [](const POSTO& a, const POSTO& b) {
    return a.ci != b.ci ? a.ci < b.ci : a.ordem < b.ordem;
  });
  std::vector<MAXLOCAL> ordenados;
  ordenados.reserve(mantidos.size());
  for (const POSTO& p : postos) ordenados.push_back(mantidos[p.ordem]);
  return ordenados;
}

// The records of which none kept before them, of the same letter, lies within maxDist.
std::vector<MAXLOCAL> semProximos(const std::vector<MAXLOCAL>& entrada, int maxDist,
                                  const pim::PAUSA& pausa) {
  if (maxDist < 0) return entrada;
  std::vector<MAXLOCAL> mantidos;
  VIZINHANCA vizinhanca(entrada, maxDist);
  for (std::size_t i = 0; i < entrada.size(); ++i) {
    if (pausa && i % itensPorPausa == 0) pausa();
    const MAXLOCAL& m = entrada[i];
    const VIZINHANCA::PONTO* perto = vizinhanca.procura(m);
    if (perto == nullptr) {
      vizinhanca.acrescenta(m);
      mantidos.push_back(m);
    } else {
      pim::afirma(std::abs(std::int64_t{m.ci} - perto->ci) <= maxDist,
                  "abs(v[i].ci-p->second.ci)<=maxDist",
                  {"vorplex", 580,
                   "void eliminaProximo(std::vector<MAXLOCAL>&, std::vector<MAXLOCAL>&, int)"});
    }
  }
  return mantidos;
}

}  // namespace

void ordena(std::vector<MAXLOCAL>& v, int l, int r) {
  ordena(v, l, r, {});
}

void ordena(std::vector<MAXLOCAL>& v, int l, int r, const pim::PAUSA& pausa) {
  pim::afirma(l <= r, "l<=r", {"vorplex", 558, "void ordena(std::vector<MAXLOCAL>&, int, int)"});
  std::vector<CHAVE> chaves;
  chaves.reserve(static_cast<std::size_t>(r - l) + 1);
  for (int i = l; i <= r; ++i) {
    chaves.push_back({v[static_cast<std::size_t>(i)].correl, static_cast<std::uint32_t>(i - l)});
  }
  ordenaFaixa(chaves.data(), 0, r - l, pausa);
  permuta(v, l, chaves);
}

void eliminaProximo(const std::vector<MAXLOCAL>& entrada, std::vector<MAXLOCAL>& saida,
                    int maxDist) {
  eliminaProximo(entrada, saida, maxDist, {});
}

void eliminaProximo(const std::vector<MAXLOCAL>& entrada, std::vector<MAXLOCAL>& saida, int maxDist,
                    const pim::PAUSA& pausa) {
  saida = porColuna(semProximos(entrada, maxDist, pausa));
  ordena(saida, 0, static_cast<int>(saida.size()) - 1, pausa);
}

void acrescenta(std::vector<MAXLOCAL>& v, const std::vector<MAXLOCAL>& novos, std::size_t maximo) {
  if (v.size() + novos.size() > maximo) pim::erro("Erro: Maximos locais demais");
  v.insert(v.end(), novos.begin(), novos.end());
}
