#include "filter/filtinter.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <span>

#include "filter/ocupacao.h"
#include "filter/silhueta.h"
#include "pim/erro.h"

namespace {

constexpr std::size_t maiorLote = 32;  // candidates
constexpr double semValor = std::numeric_limits<double>::quiet_NaN();

// Calls `acao(l, de, ate)` for the stretches of the shape of `m` that lie inside a grid of `rows`
// by `cols` cells, cut to it, for as long as `segue()`.
template <class ACAO, class SEGUE>
void paraCadaTrecho(const MAXLOCAL& m, const SILHUETA& s, unsigned rows, unsigned cols, ACAO acao,
                    SEGUE segue) {
  for (const SILHUETA::TRECHO& t : s.trechos) {
    if (!segue()) return;
    const std::int64_t l = std::int64_t{m.li} + t.linha;
    if (l < 0 || l >= rows) continue;
    const std::int64_t de = std::max<std::int64_t>(std::int64_t{m.ci} + t.de, 0);
    const std::int64_t ate = std::min<std::int64_t>(std::int64_t{m.ci} + t.ate, cols - 1LL);
    if (de <= ate) acao(static_cast<int>(l), static_cast<int>(de), static_cast<int>(ate));
  }
}

template <class ACAO>
void paraCadaTrecho(const MAXLOCAL& m, const SILHUETA& s, unsigned rows, unsigned cols, ACAO acao) {
  paraCadaTrecho(m, s, rows, cols, acao, [] { return true; });
}

// The pixels of the shape that lie outside the grid.
std::int64_t pixelsFora(const MAXLOCAL& m, const SILHUETA& s, const OCUPACAO& grade) {
  const auto longeDaBorda = [](std::int64_t x, int lado, unsigned n) {
    return x >= lado && x + lado < n;
  };
  if (longeDaBorda(m.li, s.rows, grade.rows) && longeDaBorda(m.ci, s.cols, grade.cols)) return 0;
  std::int64_t dentro = 0;
  paraCadaTrecho(m, s, grade.rows, grade.cols,
                 [&](int /*l*/, int de, int ate) { dentro += ate - de + 1; });
  return s.pixels - dentro;
}

// Whether the share of the shape's pixels that count exceeds `maximo`: all those outside the grid
// count, and of the stretches inside it what `conta(l, de, ate)` says. Never for a shape without
// pixels nor for a maximum that is no number. The rows are looked at only until that is certain.
template <class CONTA>
bool excede(const MAXLOCAL& m, const SILHUETA& s, const OCUPACAO& grade, double maximo,
            CONTA conta) {
  if (s.pixels == 0) return false;
  const std::int64_t fora = pixelsFora(m, s, grade);
  std::int64_t contados = 0;
  const auto passou = [&] {
    return static_cast<double>(fora + contados) / static_cast<double>(s.pixels) > maximo;
  };
  paraCadaTrecho(
      m, s, grade.rows, grade.cols, [&](int l, int de, int ate) { contados += conta(l, de, ate); },
      [&] { return !passou(); });
  return passou();
}

bool cobreDemais(const MAXLOCAL& m, const SILHUETA& s, const OCUPACAO& grade, double maximo) {
  return excede(m, s, grade, maximo,
                [&](int l, int de, int ate) { return grade.ocupadas(l, de, ate); });
}

bool ehCobertoDemais(const MAXLOCAL& m, int indice, const SILHUETA& s, const OCUPACAO& grade,
                     double maximo) {
  return excede(m, s, grade, maximo,
                [&](int l, int de, int ate) { return grade.deOutros(l, de, ate, indice); });
}

// The share of the shape's pixels whose cell, or the background outside the grid, counts.
template <class CONTA>
double fracaoDaGrade(const MAXLOCAL& m, cv::Mat_<unsigned char>& mascara, const GRADE& grade,
                     CONTA conta) {
  mascaraMaxLocal(m, mascara);
  const SILHUETA s = silhueta(mascara);
  const auto limita = [](std::int64_t x) {  // far outside is as good as farther
    return static_cast<int>(std::clamp<std::int64_t>(x, -1, 1 << 30));
  };
  std::int64_t contados = 0;
  for (const SILHUETA::TRECHO& t : s.trechos) {
    for (int c = t.de; c <= t.ate; ++c) {
      const int l = limita(std::int64_t{m.li} + t.linha);
      if (conta(grade.atb(l, limita(std::int64_t{m.ci} + c)))) ++contados;
    }
  }
  return s.pixels == 0 ? semValor : static_cast<double>(contados) / static_cast<double>(s.pixels);
}

// The kept detections that share a cell with the candidate `wi`, by increasing index.
std::vector<int> vizinhos(const MAXLOCAL& m, const SILHUETA& s, const OCUPACAO& grade, int wi) {
  std::vector<int> achados;
  paraCadaTrecho(m, s, grade.rows, grade.cols,
                 [&](int l, int de, int ate) { grade.junta(l, de, ate, achados); });
  std::sort(achados.begin(), achados.end());
  achados.erase(std::unique(achados.begin(), achados.end()), achados.end());
  std::erase(achados, wi);
  return achados;
}

// Takes the index `wi` of a withdrawn detection off the cells of its shape. The bounds are those
// of the mask and not of the grid, the column's inclusive: only cells in the top left corner of the
// image are cleared, all others keep the index. Results depend on it.
void retira(const MAXLOCAL& m, const SILHUETA& s, OCUPACAO& grade, int wi) {
  const auto rows = static_cast<unsigned>(s.rows);
  const auto cols = static_cast<unsigned>(s.cols);
  paraCadaTrecho(m, s, rows, cols + 1, [&](int l, int de, int ate) {
    for (int c = de; c <= ate; ++c) grade.retira(l, c, wi);
  });
}

// The filter at work: what is kept so far and where it lies.
struct FILTRO {
  const LIMIARES& limiares;
  std::vector<MAXLOCAL>& saida;
  OCUPACAO grade;
  SILHUETAS silhuetas;

  // Whether the candidate `wi` takes some kept neighbour over the maximum of its own letter.
  bool invadeVizinho(const MAXLOCAL& m, const SILHUETA& s, int wi) {
    // NOLINTNEXTLINE(readability-use-anyofallof): it asserts as it goes
    for (const int j : vizinhos(m, s, grade, wi)) {
      pim::afirma(j >= 0, "t[i]>=0",
                  {"vorplex", __LINE__,
                   "void filtInter(std::vector<MAXLOCAL>&, std::vector<MAXLOCAL>&, cv::Size, "
                   "double, double, double, double, double, double, double, double)"});
      const MAXLOCAL& viz = saida.at(static_cast<std::size_t>(j));
      const double maximo = limiares.de(viz.forma).maxInter;
      if (ehCobertoDemais(viz, j, silhuetas.de(viz), grade, maximo)) return true;
    }
    return false;
  }

  bool fraca(const MAXLOCAL& m) const {
    return static_cast<double>(m.correl) < limiares.de(m.forma).minCorr;
  }

  void considera(const MAXLOCAL& m, const SILHUETA& s) {
    if (cobreDemais(m, s, grade, limiares.de(m.forma).maxInter)) return;
    // All cells are asked for at once: most of the time would be spent waiting for one at a time.
    paraCadaTrecho(m, s, grade.rows, grade.cols,
                   [&](int l, int de, int ate) { grade.antecipa(l, de, ate); });
    saida.push_back(m);
    const int wi = static_cast<int>(saida.size()) - 1;
    paraCadaTrecho(m, s, grade.rows, grade.cols,
                   [&](int l, int de, int ate) { grade.acrescenta(l, de, ate, wi); });
    if (invadeVizinho(m, s, wi)) {
      saida.pop_back();
      retira(m, s, grade, wi);
    }
  }

  // A few candidates in their order: their silhouettes are looked up together, so that the
  // processor fetches them side by side.
  void consideraLote(std::span<const MAXLOCAL> lote) {
    silhuetas.arruma();
    std::array<const SILHUETA*, maiorLote> formas{};
    for (std::size_t k = 0; k < lote.size(); ++k) {
      if (!fraca(lote[k])) formas[k] = &silhuetas.de(lote[k]);
    }
    for (std::size_t k = 0; k < lote.size(); ++k) {
      if (formas[k] != nullptr) considera(lote[k], *formas[k]);
    }
  }
};

}  // namespace

double calcInter(const MAXLOCAL& m, cv::Mat_<unsigned char>& mascara, const GRADE& grade) {
  return fracaoDaGrade(m, mascara, grade, [](const std::vector<int>& t) { return !t.empty(); });
}

double calcInterViz(const MAXLOCAL& m, int indice, cv::Mat_<unsigned char>& mascara,
                    const GRADE& grade) {
  return fracaoDaGrade(m, mascara, grade, [indice](const std::vector<int>& t) {
    return t.size() >= 2 || (t.size() == 1 && t.at(0) != indice);
  });
}

void filtInter(const std::vector<MAXLOCAL>& entrada, std::vector<MAXLOCAL>& saida, cv::Size tamanho,
               const LIMIARES& limiares) {
  FILTRO filtro{limiares, saida, OCUPACAO(tamanho.height, tamanho.width), {}};
  const std::span<const MAXLOCAL> candidatos = entrada;
  for (std::size_t i = 0; i < candidatos.size(); i += maiorLote) {
    filtro.consideraLote(candidatos.subspan(i, std::min(maiorLote, candidatos.size() - i)));
  }
}

void filtInter(std::vector<MAXLOCAL>& entrada, std::vector<MAXLOCAL>& saida, cv::Size tamanho,
               double minCorrCir, double maxInterCir, double minCorrRet, double maxInterRet,
               double minCorrQua, double maxInterQua, double minCorrEli, double maxInterEli) {
  filtInter(entrada, saida, tamanho,
            {{minCorrCir, maxInterCir},
             {minCorrRet, maxInterRet},
             {minCorrQua, maxInterQua},
             {minCorrEli, maxInterEli}});
}
