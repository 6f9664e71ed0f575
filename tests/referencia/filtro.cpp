#include "referencia/filtro.h"

#include <cstdint>
#include <limits>
#include <map>

#include "pim/erro.h"

namespace referencia {
namespace {

double sobreposicaoViz(const MAXLOCAL& m, int indice, cv::Mat_<unsigned char>& mascara,
                       const GRADE& grade);

constexpr double semValor = std::numeric_limits<double>::quiet_NaN();
constexpr const char* assinatura =
    "void filtInter(std::vector<MAXLOCAL>&, std::vector<MAXLOCAL>&, cv::Size, double, double, "
    "double, double, double, double, double, double)";

// A centre far outside any grid would overflow when a mask offset is added; this far out all
// positions are equally outside.
int limita(std::int64_t x) {
  constexpr std::int64_t longe = 1 << 30;
  return static_cast<int>(x < -longe ? -longe : x > longe ? longe : x);
}

// Calls `acao(l, c)` with the grid coordinates of every pixel of the shape of `m`, row by row.
template <class ACAO>
void paraCadaPixel(const MAXLOCAL& m, const cv::Mat_<unsigned char>& mascara, ACAO acao) {
  const std::int64_t topo = std::int64_t{m.li} - mascara.rows / 2;
  const std::int64_t esquerda = std::int64_t{m.ci} - mascara.cols / 2;
  for (int r = 0; r < mascara.rows; ++r) {
    for (int c = 0; c < mascara.cols; ++c) {
      if (mascara(r, c) == 0) acao(limita(topo + r), limita(esquerda + c));
    }
  }
}

// Calls `acao(celula)` for every cell inside the grid that the shape covers.
template <class ACAO>
void paraCadaCelula(const MAXLOCAL& m, const cv::Mat_<unsigned char>& mascara, GRADE& grade,
                    ACAO acao) {
  paraCadaPixel(m, mascara, [&](int l, int c) {
    const auto ul = static_cast<unsigned>(l);
    const auto uc = static_cast<unsigned>(c);
    if (ul < grade.rows && uc < grade.cols) acao(grade(ul, uc));
  });
}

// The share of the shape's pixels whose cell satisfies `conta`.
template <class CONTA>
double fracao(const MAXLOCAL& m, cv::Mat_<unsigned char>& mascara, const GRADE& grade,
              CONTA conta) {
  mascaraMaxLocal(m, mascara);
  if (mascara.rows < 1) return semValor;
  std::int64_t total = 0;
  std::int64_t contados = 0;
  paraCadaPixel(m, mascara, [&](int l, int c) {
    ++total;
    if (conta(grade.atb(l, c))) ++contados;
  });
  return static_cast<double>(contados) / static_cast<double>(total);
}

// The kept detections that share a cell with the candidate `wi`, by increasing index.
std::map<int, int> vizinhos(const MAXLOCAL& m, const cv::Mat_<unsigned char>& mascara, GRADE& grade,
                            int wi) {
  std::map<int, int> achados;
  paraCadaCelula(m, mascara, grade, [&](const std::vector<int>& t) {
    for (const int i : t) {
      pim::afirma(i >= 0, "t[i]>=0", {"vorplex", __LINE__, assinatura});
      if (i != wi) achados[i] = i;
    }
  });
  return achados;
}

// Whether some kept neighbour is now covered beyond the maximum of its own letter.
bool invadeVizinho(const MAXLOCAL& m, const cv::Mat_<unsigned char>& mascara, GRADE& grade, int wi,
                   const std::vector<MAXLOCAL>& saida, const LIMIARES& limiares) {
  for (const auto& [j, mesmo] : vizinhos(m, mascara, grade, wi)) {
    const MAXLOCAL& viz = saida.at(static_cast<std::size_t>(j));
    cv::Mat_<unsigned char> mascaraViz;
    if (sobreposicaoViz(viz, j, mascaraViz, grade) > limiares.de(viz.forma).maxInter) return true;
  }
  return false;
}

// Whether a withdrawn detection leaves a cell at rows and columns that are not negative. The bounds
// are those of the mask and not of the grid, the column's inclusive: only cells in the top left
// corner of the image are cleared, all others keep the index. Results depend on it.
bool sai(int l, int c, const cv::Mat_<unsigned char>& mascara, const GRADE& grade,
         RETIRADA retirada) {
  switch (retirada) {
    case RETIRADA::doTamanhoDaMascara:
      return l < mascara.rows && c <= mascara.cols;
    case RETIRADA::semUltimaColuna:
      return l < mascara.rows && c < mascara.cols;
    case RETIRADA::daImagem:
      return static_cast<unsigned>(l) < grade.rows && static_cast<unsigned>(c) < grade.cols;
    case RETIRADA::nenhuma:
      return false;
  }
  return false;
}

// Takes the index `wi` of a withdrawn detection off the cells of its shape. Returns in how many of
// the grid it stays.
int retira(const MAXLOCAL& m, const cv::Mat_<unsigned char>& mascara, GRADE& grade, int wi,
           RETIRADA retirada) {
  int presos = 0;
  paraCadaPixel(m, mascara, [&](int l, int c) {
    const auto ul = static_cast<unsigned>(l);
    const auto uc = static_cast<unsigned>(c);
    if (l < 0 || c < 0 || !sai(l, c, mascara, grade, retirada)) {
      presos += ul < grade.rows && uc < grade.cols ? 1 : 0;
      return;
    }
    std::vector<int>& t = grade(ul, uc);
    if (t.empty()) return;
    pim::afirma(t.back() == wi, "t.back()==int(wi)", {"vorplex", __LINE__, assinatura});
    t.pop_back();
  });
  return presos;
}

GRADE gradeVazia(cv::Size tamanho) {
  GRADE grade(static_cast<unsigned>(tamanho.height), static_cast<unsigned>(tamanho.width));
  for (std::vector<int>& t : grade.celulas) t.reserve(3);
  grade.backg = {-1};
  return grade;
}

double sobreposicao(const MAXLOCAL& m, cv::Mat_<unsigned char>& mascara, const GRADE& grade) {
  return fracao(m, mascara, grade, [](const std::vector<int>& t) { return !t.empty(); });
}

double sobreposicaoViz(const MAXLOCAL& m, int indice, cv::Mat_<unsigned char>& mascara,
                       const GRADE& grade) {
  return fracao(m, mascara, grade, [indice](const std::vector<int>& t) {
    return t.size() >= 2 || (t.size() == 1 && t.at(0) != indice);
  });
}

}  // namespace

RETIRADAS filtra(const std::vector<MAXLOCAL>& entrada, std::vector<MAXLOCAL>& saida,
                 cv::Size tamanho, const LIMIARES& limiares, RETIRADA retirada) {
  RETIRADAS retiradas;
  GRADE grade = gradeVazia(tamanho);
  for (const MAXLOCAL& m : entrada) {
    const LIMIAR limiar = limiares.de(m.forma);
    if (static_cast<double>(m.correl) < limiar.minCorr) continue;
    cv::Mat_<unsigned char> mascara;
    if (sobreposicao(m, mascara, grade) > limiar.maxInter) continue;
    saida.push_back(m);
    const int wi = static_cast<int>(saida.size()) - 1;
    paraCadaCelula(m, mascara, grade, [wi](std::vector<int>& t) { t.push_back(wi); });
    if (invadeVizinho(m, mascara, grade, wi, saida, limiares)) {
      saida.pop_back();
      ++retiradas.retirados;
      retiradas.presos += retira(m, mascara, grade, wi, retirada);
    }
  }
  return retiradas;
}

void filtInter(const std::vector<MAXLOCAL>& entrada, std::vector<MAXLOCAL>& saida, cv::Size tamanho,
               const LIMIARES& limiares) {
  filtra(entrada, saida, tamanho, limiares);
}

}  // namespace referencia
