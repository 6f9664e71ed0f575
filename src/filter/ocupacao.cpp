#include "filter/ocupacao.h"

#include <bit>
#include <new>

#include "pim/erro.h"
#include "pim/matriz.h"

namespace {

constexpr int bits = 64;

// Calls `acao(word, mask)` for the words that hold bits [de, ate] of a row.
template <class ACAO>
void paraCadaPalavra(int de, int ate, ACAO acao) {
  for (int p = de / bits; p <= ate / bits; ++p) {
    std::uint64_t mascara = ~std::uint64_t{0};
    if (p == de / bits) mascara &= ~std::uint64_t{0} << de % bits;
    if (p == ate / bits) mascara &= ~std::uint64_t{0} >> (bits - 1 - ate % bits);
    acao(static_cast<std::size_t>(p), mascara);
  }
}

}  // namespace

OCUPACAO::OCUPACAO(int linhas, int colunas, std::size_t maximo)
    : rows(static_cast<unsigned>(linhas)),
      cols(static_cast<unsigned>(colunas)),
      celulas(std::size_t{rows} * cols, vazia),
      maximoDeElos(maximo),
      palavras(cols / bits + 1),
      ocupada(palavras * rows) {}

void OCUPACAO::acrescenta(int l, int de, int ate, int i) {
  int* celula = celulas.data() + inicio(l);
  for (int c = de; c <= ate; ++c) {
    if (celula[c] == vazia) {
      celula[c] = i;
    } else {
      if (elos.size() == maximoDeElos) throw std::bad_alloc();
      elos.push_back({i, celula[c]});
      celula[c] = -1 - static_cast<int>(elos.size());
    }
  }
  std::uint64_t* linha = marcas(l);
  paraCadaPalavra(de, ate, [&](std::size_t p, std::uint64_t mascara) { linha[p] |= mascara; });
}

void OCUPACAO::retira(int l, int c, int wi) {
  pim::afirmaDentro(static_cast<unsigned>(l), static_cast<unsigned>(c), rows, cols);
  int& celula = celulas[inicio(l) + static_cast<unsigned>(c)];
  if (celula == vazia) return;
  const ELO ultimo = celula < vazia ? elos[elo(celula)] : ELO{celula, vazia};
  pim::afirma(ultimo.indice == wi, "t.back()==int(wi)",
              {"vorplex", __LINE__,
               "void filtInter(std::vector<MAXLOCAL>&, std::vector<MAXLOCAL>&, cv::Size, double, "
               "double, double, double, double, double, double, double)"});
  celula = ultimo.resto;
  if (celula != vazia) return;
  std::uint64_t* linha = marcas(l);
  paraCadaPalavra(c, c, [&](std::size_t p, std::uint64_t mascara) { linha[p] &= ~mascara; });
}

// A cell with a link holds two indices at least.
int OCUPACAO::deOutros(int l, int de, int ate, int indice) const {
  const int* celula = celulas.data() + inicio(l);
  int n = 0;
  for (int c = de; c <= ate; ++c) n += celula[c] != vazia && celula[c] != indice ? 1 : 0;
  return n;
}

int OCUPACAO::ocupadas(int l, int de, int ate) const {
  const std::uint64_t* linha = ocupada.data() + static_cast<std::size_t>(l) * palavras;
  int n = 0;
  paraCadaPalavra(de, ate, [&](std::size_t p, std::uint64_t mascara) {
    n += std::popcount(linha[p] & mascara);
  });
  return n;
}

bool OCUPACAO::mesmos(int a, int b) const {
  return a == b || (a < vazia && b < vazia && elos[elo(a)] == elos[elo(b)]);
}

void OCUPACAO::antecipa(int l, int de, int ate) const {
  const int* celula = celulas.data() + inicio(l);
  __builtin_prefetch(celula + de);
  __builtin_prefetch(celula + ate);
}

void OCUPACAO::junta(int l, int de, int ate, std::vector<int>& indices) const {
  const int* celula = celulas.data() + inicio(l);
  int anterior = vazia;
  for (int c = de; c <= ate; ++c) {
    const bool repete = mesmos(celula[c], anterior);
    anterior = celula[c];
    if (repete) continue;
    int i = celula[c];
    for (; i < vazia; i = elos[elo(i)].resto) indices.push_back(elos[elo(i)].indice);
    if (i != vazia) indices.push_back(i);
  }
}
