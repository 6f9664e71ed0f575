#include "motor/termos/regioes.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace motor {
namespace {

// What a weight may differ from 1/P or -1/N, as a share of it. Those are divided in double and kept
// as floats, which moves them by 6e-8 of their value.
constexpr double diferencaDePeso = 1e-6;

// Columns of the ends of a row's stretches, left and right in turn.
std::vector<int> extremos(const REGIAO& regiao, int r) {
  const unsigned char* linha = regiao[r];
  const int n = regiao.cols;
  std::vector<int> colunas;
  for (int procurado = 1, c = 0; c < n; procurado = 1 - procurado) {
    const void* p = std::memchr(linha + c, procurado, static_cast<std::size_t>(n - c));
    if (p == nullptr) break;
    c = static_cast<int>(static_cast<const unsigned char*>(p) - linha);
    colunas.push_back(c - 1);
  }
  if (colunas.size() % 2 != 0) colunas.push_back(n - 1);
  return colunas;
}

// How many stretches of pixels each column has.
std::vector<int> trechosDasColunas(const REGIAO& regiao) {
  std::vector<int> n(static_cast<std::size_t>(regiao.cols));
  for (int r = 0; r < regiao.rows; ++r) {
    for (int c = 0; c < regiao.cols; ++c) {
      const bool comeca = regiao(r, c) != 0 && (r == 0 || regiao(r - 1, c) == 0);
      n[static_cast<std::size_t>(c)] += comeca ? 1 : 0;
    }
  }
  return n;
}

// Consecutive ranges of so many rows or columns that the `a` and the `b` of each add up to `maximo`
// at most; none when one alone has more.
std::vector<cv::Range> faixas(const std::vector<int>& a, const std::vector<int>& b, int maximo) {
  std::vector<cv::Range> partes;
  cv::Range parte(0, 0);
  int somaA = 0;
  int somaB = 0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (a[i] > maximo || b[i] > maximo) return {};
    if (somaA + a[i] > maximo || somaB + b[i] > maximo) {
      partes.push_back(parte);
      parte.start = parte.end;
      somaA = somaB = 0;
    }
    ++parte.end;
    somaA += a[i];
    somaB += b[i];
  }
  partes.push_back(parte);
  return partes;
}

}  // namespace

std::optional<REGIOES> regioesDoKernel(const cv::Mat_<float>& K) {
  REGIOES x{REGIAO(K.size()), REGIAO(K.size()), 0, 0};
  for (int r = 0; r < K.rows; ++r) {
    for (int c = 0; c < K.cols; ++c) {
      x.tudo(r, c) = K(r, c) != 0 ? 1 : 0;
      x.nucleo(r, c) = K(r, c) < 0 ? 1 : 0;
      if (K(r, c) > 0) ++x.nAnel;
      if (K(r, c) < 0) ++x.nNucleo;
    }
  }
  if (x.nAnel == 0 || x.nNucleo == 0) return std::nullopt;
  for (const float w : K) {
    const double pixels = w > 0 ? x.nAnel : -x.nNucleo;
    if (w != 0 && !(std::abs(w * pixels - 1) < diferencaDePeso)) return std::nullopt;
  }
  return x;
}

std::vector<cv::Range> divideLinhas(const REGIOES& r, int maximo) {
  std::vector<int> nAnel;
  std::vector<int> nNucleo;
  for (int l = 0; l < r.tudo.rows; ++l) {
    nNucleo.push_back(cv::countNonZero(r.nucleo.row(l)));
    nAnel.push_back(cv::countNonZero(r.tudo.row(l)) - nNucleo.back());
  }
  return faixas(nAnel, nNucleo, maximo);
}

REGIAO soLinhas(const REGIAO& regiao, const cv::Range& linhas) {
  REGIAO parte(regiao.size(), 0);
  regiao.rowRange(linhas).copyTo(parte.rowRange(linhas));
  return parte;
}

std::vector<cv::Range> divideColunas(const REGIOES& r, int maximo) {
  return faixas(trechosDasColunas(r.tudo), trechosDasColunas(r.nucleo), maximo);
}

REGIAO soColunas(const REGIAO& regiao, const cv::Range& colunas) {
  REGIAO parte(regiao.size(), 0);
  regiao.colRange(colunas).copyTo(parte.colRange(colunas));
  return parte;
}

std::vector<PEDACO> pedacosDaRegiao(const REGIAO& regiao, int maximo) {
  std::vector<PEDACO> pedacos;
  for (int r = 0; r < regiao.rows; ++r) {
    const std::vector<int> colunas = extremos(regiao, r);
    for (std::size_t j = 0; j < colunas.size(); j += 2) {
      for (int antes = colunas[j]; antes < colunas[j + 1]; antes += maximo) {
        const int ultima = std::min(antes + maximo, colunas[j + 1]);
        pedacos.push_back({r - regiao.rows / 2, antes - regiao.cols / 2, ultima - regiao.cols / 2});
      }
    }
  }
  return pedacos;
}

std::vector<LADO> ladosDaRegiao(const REGIAO& regiao) {
  std::vector<LADO> prontos;
  std::vector<LADO> abertos;  // that of the j-th end of the row before
  for (int r = 0; r <= regiao.rows; ++r) {
    const std::vector<int> colunas = r < regiao.rows ? extremos(regiao, r) : std::vector<int>{};
    while (abertos.size() > colunas.size()) {
      prontos.push_back(std::move(abertos.back()));
      abertos.pop_back();
    }
    for (std::size_t j = 0; j < colunas.size(); ++j) {
      if (j == abertos.size()) abertos.push_back({j % 2 == 0 ? -1 : 1, r - regiao.rows / 2, {}});
      abertos[j].coluna.push_back(colunas[j] - regiao.cols / 2);
    }
  }
  return prontos;
}

}  // namespace motor
