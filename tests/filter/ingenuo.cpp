#include "ingenuo.h"

#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <utility>

namespace {

using CELULA = std::pair<int, int>;

struct FILTRO {
  int linhas;
  int colunas;
  LIMIARES limites;
  RETIRADA retirada;
  std::map<CELULA, std::vector<int>> grade;
  std::vector<MAXLOCAL> saida;
  FILTRADO resultado;

  std::optional<LIMIAR> limite(char forma) const {
    if (forma == 'c') return limites.circulo;
    if (forma == 'q') return limites.quadrado;
    if (forma == 'r') return limites.retangulo;
    if (forma == 'e') return limites.elipse;
    return std::nullopt;
  }

  // Any cell outside the grid stands for all of them.
  CELULA celula(std::int64_t l, std::int64_t c) const {
    const bool dentro = l >= 0 && l < linhas && c >= 0 && c < colunas;
    return dentro ? CELULA(static_cast<int>(l), static_cast<int>(c)) : CELULA(-1, -1);
  }

  const std::vector<int>& conteudo(const CELULA& cel) const {
    static const std::vector<int> fora = {-1};
    static const std::vector<int> vazia;
    if (cel.first < 0) return fora;
    const auto achada = grade.find(cel);
    return achada == grade.end() ? vazia : achada->second;
  }

  // The cells of a shape; coordinates may lie anywhere, so they are 64 bits wide.
  static std::vector<std::pair<std::int64_t, std::int64_t>> pixels(
      const MAXLOCAL& m, const cv::Mat_<unsigned char>& mascara) {
    std::vector<std::pair<std::int64_t, std::int64_t>> lista;
    for (int r = 0; r < mascara.rows; ++r) {
      for (int c = 0; c < mascara.cols; ++c) {
        if (mascara(r, c) != 0) continue;
        lista.emplace_back(std::int64_t{m.li} + r - mascara.rows / 2,
                           std::int64_t{m.ci} + c - mascara.cols / 2);
      }
    }
    return lista;
  }

  double ocupacao(const MAXLOCAL& m) const {
    cv::Mat_<unsigned char> mascara;
    mascaraMaxLocal(m, mascara);
    const auto lista = pixels(m, mascara);
    if (lista.empty()) return std::numeric_limits<double>::quiet_NaN();
    int ocupados = 0;
    for (const auto& [l, c] : lista) {
      if (!conteudo(celula(l, c)).empty()) ++ocupados;
    }
    return ocupados / static_cast<double>(lista.size());
  }

  double partilha(int indice) const {
    const MAXLOCAL& m = saida.at(static_cast<std::size_t>(indice));
    cv::Mat_<unsigned char> mascara;
    mascaraMaxLocal(m, mascara);
    const auto lista = pixels(m, mascara);
    if (lista.empty()) return std::numeric_limits<double>::quiet_NaN();
    int partilhados = 0;
    for (const auto& [l, c] : lista) {
      const std::vector<int>& t = conteudo(celula(l, c));
      if (t.size() > 1 || (t.size() == 1 && t[0] != indice)) ++partilhados;
    }
    return partilhados / static_cast<double>(lista.size());
  }

  bool sai(std::int64_t l, std::int64_t c, const cv::Mat_<unsigned char>& mascara) const {
    if (l < 0 || c < 0) return false;
    switch (retirada) {
      case RETIRADA::doTamanhoDaMascara:
        return l < mascara.rows && c <= mascara.cols;
      case RETIRADA::semUltimaColuna:
        return l < mascara.rows && c < mascara.cols;
      case RETIRADA::daImagem:
        return l < linhas && c < colunas;
      case RETIRADA::nenhuma:
        return false;
    }
    return false;
  }

  void retira(const MAXLOCAL& m, const cv::Mat_<unsigned char>& mascara, int wi) {
    saida.pop_back();
    resultado.mantidos.pop_back();
    ++resultado.retirados;
    for (const auto& [l, c] : pixels(m, mascara)) {
      const CELULA cel = celula(l, c);
      if (!sai(l, c, mascara)) {
        if (cel.first >= 0) ++resultado.presos;
        continue;
      }
      if (cel.first < 0) {
        resultado.afirmacao = "l<rows && c<cols";
        return;
      }
      std::vector<int>& t = grade[cel];
      if (t.empty()) continue;
      if (t.back() != wi) {
        resultado.afirmacao = "t.back()==int(wi)";
        return;
      }
      t.pop_back();
    }
  }

  void considera(const MAXLOCAL& m, std::size_t posicao) {
    const std::optional<LIMIAR> meu = limite(m.forma);
    if (meu && static_cast<double>(m.correl) < meu->minCorr) return;
    if (meu && ocupacao(m) > meu->maxInter) return;
    const int wi = static_cast<int>(saida.size());
    saida.push_back(m);
    resultado.mantidos.push_back(posicao);

    cv::Mat_<unsigned char> mascara;
    mascaraMaxLocal(m, mascara);
    std::set<int> vizinhos;
    for (const auto& [l, c] : pixels(m, mascara)) {
      const CELULA cel = celula(l, c);
      if (cel.first < 0) continue;
      std::vector<int>& t = grade[cel];
      t.push_back(wi);
      vizinhos.insert(t.begin(), t.end());
    }
    vizinhos.erase(wi);
    for (const int j : vizinhos) {
      const std::optional<LIMIAR> dele = limite(saida.at(static_cast<std::size_t>(j)).forma);
      if (dele && partilha(j) > dele->maxInter) return retira(m, mascara, wi);
    }
  }
};

}  // namespace

FILTRADO filtraIngenuo(const std::vector<MAXLOCAL>& entrada, cv::Size tamanho, const LIMIARES& t,
                       RETIRADA retirada) {
  FILTRO filtro = {tamanho.height, tamanho.width, t, retirada, {}, {}, {}};
  for (std::size_t i = 0; i < entrada.size() && filtro.resultado.afirmacao.empty(); ++i) {
    filtro.considera(entrada[i], i);
  }
  return filtro.resultado;
}
