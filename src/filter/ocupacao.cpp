#include "filter/ocupacao.h"

#include "pim/erro.h"
#include "pim/matriz.h"

OCUPACAO::OCUPACAO(int linhas, int colunas)
    : rows(static_cast<unsigned>(linhas)),
      cols(static_cast<unsigned>(colunas)),
      celulas(std::size_t{rows} * cols, vazia) {}

void OCUPACAO::acrescenta(int l, int c, int i) {
  int& celula = celulas[static_cast<std::size_t>(l) * cols + static_cast<unsigned>(c)];
  if (celula == vazia) {
    celula = i;
  } else if (celula >= 0) {
    listas.push_back({celula, i});
    celula = -1 - static_cast<int>(listas.size());
  } else {
    listas[lista(celula)].push_back(i);
  }
}

void OCUPACAO::retira(int l, int c, int wi) {
  pim::afirmaDentro(static_cast<unsigned>(l), static_cast<unsigned>(c), rows, cols);
  int& celula = celulas[static_cast<std::size_t>(l) * cols + static_cast<unsigned>(c)];
  const bool temLista = celula < vazia;
  if (celula == vazia || (temLista && listas[lista(celula)].empty())) return;
  const int ultimo = temLista ? listas[lista(celula)].back() : celula;
  pim::afirma(ultimo == wi, "t.back()==int(wi)",
              {"vorplex", __LINE__,
               "void filtInter(std::vector<MAXLOCAL>&, std::vector<MAXLOCAL>&, cv::Size, double, "
               "double, double, double, double, double, double, double)"});
  if (temLista) {
    listas[lista(celula)].pop_back();
  } else {
    celula = vazia;
  }
}

bool OCUPACAO::temOutro(int celula, int indice) const {
  const std::vector<int>& t = listas[lista(celula)];
  return t.size() >= 2 || (t.size() == 1 && t[0] != indice);
}

// Every cell that is not empty nor holds `indice` alone counts at first, without a look at lists,
// so that many cells are compared at once; most stretches need no more.
int OCUPACAO::deOutros(int l, int de, int ate, int indice) const {
  const int* celula = linha(l);
  int n = 0;
  int comLista = 0;
  for (int c = de; c <= ate; ++c) {
    n += celula[c] != vazia && celula[c] != indice ? 1 : 0;
    comLista += celula[c] < vazia ? 1 : 0;
  }
  for (int c = de; comLista > 0 && c <= ate; ++c) {
    if (celula[c] >= vazia) continue;
    if (!temOutro(celula[c], indice)) --n;
    --comLista;
  }
  return n;
}

int OCUPACAO::ocupadas(int l, int de, int ate) const {
  return deOutros(l, de, ate, vazia);
}

void OCUPACAO::antecipa(int l, int de, int ate) const {
  __builtin_prefetch(linha(l) + de);
  __builtin_prefetch(linha(l) + ate);
}

void OCUPACAO::junta(int l, int de, int ate, std::vector<int>& indices) const {
  const int* celula = linha(l);
  int anterior = vazia;
  for (int c = de; c <= ate; ++c) {
    if (celula[c] == anterior) continue;  // a run of cells with the same content
    anterior = celula[c];
    if (celula[c] >= 0) indices.push_back(celula[c]);
    if (celula[c] >= vazia) continue;
    const std::vector<int>& t = listas[lista(celula[c])];
    indices.insert(indices.end(), t.begin(), t.end());
  }
}
