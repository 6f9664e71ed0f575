#include "detect/regioes.h"

#include <cmath>

namespace {

// Columns of the ends of a row's stretches, left and right in turn.
std::vector<int> extremos(const REGIAO& regiao, int r) {
  const unsigned char* linha = regiao[r];
  std::vector<int> colunas;
  int antes = 0;
  for (int c = 0; c < regiao.cols; ++c) {
    if (linha[c] != antes) colunas.push_back(c - 1);
    antes = linha[c];
  }
  if (antes != 0) colunas.push_back(regiao.cols - 1);
  return colunas;
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
    if (w != 0 && !(std::abs(w * pixels - 1) < 1e-6)) return std::nullopt;
  }
  return x;
}

std::vector<cv::Range> divideLinhas(const REGIOES& r, int maximo) {
  std::vector<cv::Range> partes;
  cv::Range parte(0, 0);
  int anel = 0;
  int nucleo = 0;
  for (int l = 0; l < r.tudo.rows; ++l) {
    const int doNucleo = cv::countNonZero(r.nucleo.row(l));
    const int doAnel = cv::countNonZero(r.tudo.row(l)) - doNucleo;
    if (doAnel > maximo || doNucleo > maximo) return {};
    if (!parte.empty() && (anel + doAnel > maximo || nucleo + doNucleo > maximo)) {
      partes.push_back(parte);
      parte = cv::Range(l, l);
      anel = nucleo = 0;
    }
    parte.end = l + 1;
    anel += doAnel;
    nucleo += doNucleo;
  }
  partes.push_back(parte);
  return partes;
}

REGIAO soLinhas(const REGIAO& regiao, const cv::Range& linhas) {
  REGIAO parte(regiao.size(), 0);
  regiao.rowRange(linhas).copyTo(parte.rowRange(linhas));
  return parte;
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
