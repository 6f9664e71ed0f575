#include "detect/rapida.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <type_traits>
#include <utility>

#include "detect/faixa.h"

namespace {

constexpr int linhasDeTrabalho = 64;
constexpr int colunasDeTrabalho = 256;
constexpr double maximoDeBytes = 256.0 * (1 << 20);

template <class T>
SOMA separa(const std::vector<TERMO>& termos, const FAIXA<T>& faixa) {
  SOMA soma;
  for (const TERMO& t : termos) {
    const auto desloc = static_cast<std::ptrdiff_t>(faixa.tamanho) * t.plano +
                        static_cast<std::ptrdiff_t>(faixa.passo) * t.dl + t.dc;
    (t.sinal > 0 ? soma.mais : soma.menos).push_back(static_cast<std::int32_t>(desloc));
  }
  // In order of memory, the nearest reads follow each other.
  std::sort(soma.mais.begin(), soma.mais.end());
  std::sort(soma.menos.begin(), soma.menos.end());
  return soma;
}

template <class T>
std::vector<EXTREMOS> extremos(const std::vector<PEDACO>& pedacos, const FAIXA<T>& faixa) {
  std::vector<EXTREMOS> lista;
  for (const PEDACO& t : pedacos) {
    const auto linha = static_cast<std::int32_t>(faixa.passo) * t.linha;
    lista.push_back({linha + t.ultima, linha + t.antes});
  }
  return lista;
}

// Planes of 16 bits are for the parts of a kernel.
template <class T>
std::vector<KERNELPRONTO> prontos(const std::vector<const ESQUEMA*>& kernels, double unidade,
                                  const FAIXA<T>& faixa) {
  std::vector<KERNELPRONTO> lista;
  for (const ESQUEMA* e : kernels) {
    const double anel = e->nAnel;
    const double nucleo = e->nNucleo;
    KERNELPRONTO k{{}, anel, nucleo, 1 / (anel * nucleo * unidade), e->indice, {}, {}};
    const bool curto = std::is_same_v<T, std::int16_t>;
    for (const PARTE& p : curto ? std::span(e->partes) : std::span(&e->inteira, 1)) {
      k.partes.push_back({separa(p.tudo, faixa), separa(p.nucleo, faixa)});
    }
    k.pedacosDoTudo = extremos(e->pedacosDoTudo, faixa);
    k.pedacosDoNucleo = extremos(e->pedacosDoNucleo, faixa);
    lista.push_back(std::move(k));
  }
  return lista;
}

// Rows of a strip's work area: half as many as the two margins, which are moved when it is full.
// More would leave the caches, fewer be moved all the time.
int linhasDaFaixa(int margem) {
  const int blocos = (margem + linhasDeTrabalho - 1) / linhasDeTrabalho;
  return std::max(1, blocos) * linhasDeTrabalho;
}

// One level, the kernels of the group applied to it, and where the results go.
struct TRABALHO {
  const NIVEL& nivel;
  const std::vector<const ESQUEMA*>& kernels;
  const GRUPO& grupo;
  int colunas;  // of a strip
  cv::Mat_<float>& melhor;
  cv::Mat_<int>& qual;
};

// Strip by strip from left to right, and in each block by block downward: calls `avalia(block,
// kernels)`, with `comeca()` before the first block of a strip.
template <class T, class COMECA, class AVALIACAO>
void percorre(const TRABALHO& t, COMECA comeca, AVALIACAO avalia) {
  FAIXA<T> faixa(t.grupo.margem, linhasDaFaixa(t.grupo.margem), t.colunas, t.grupo.planos);
  const std::vector<KERNELPRONTO> lista = prontos(t.kernels, t.nivel.unidade, faixa);
  const int rows = t.nivel.imagem.rows;
  const int cols = t.nivel.imagem.cols;
  for (int x0 = 0; x0 < cols; x0 += t.colunas) {
    faixa.enche(t.nivel, x0, 0, 0, 2 * faixa.margem);
    comeca();
    int feitas = 0;
    for (int y0 = 0; y0 < rows; y0 += linhasDeTrabalho) {
      if (feitas == faixa.linhas) {
        faixa.avanca(feitas);
        feitas = 0;
      }
      const int linhas = std::min(linhasDeTrabalho, rows - y0);
      const int de = 2 * faixa.margem + feitas;
      faixa.enche(t.nivel, x0, y0 - feitas, de, de + linhas);
      avalia(BLOCO<T>{faixa.origem() + static_cast<std::size_t>(feitas) * faixa.passo, faixa.passo,
                      linhas, std::min(t.colunas, cols - x0), t.melhor[y0] + x0, t.melhor.step1(),
                      t.qual[y0] + x0, t.qual.step1()},
             lista);
      feitas += linhas;
    }
  }
}

template <class T>
void percorreCom(const TRABALHO& t, AVALIA<T>* avalia) {
  percorre<T>(
      t, [] {}, avalia);
}

void percorreDescendo(const TRABALHO& t, DESCE* avalia) {
  DESCIDA descida;
  percorre<std::int16_t>(
      t, [&] { descida.kernels.clear(); },
      [&](const auto& bloco, const auto& lista) { avalia(bloco, lista, descida); });
}

// Whether the sums over ring and core fit the planes' type.
bool cabe(const NIVEL& nivel, const std::vector<const ESQUEMA*>& kernels, const GRUPO& grupo,
          int colunas) {
  if (nivel.tipo == REPRESENTACAO::inteira) {
    return std::all_of(kernels.begin(), kernels.end(), [&](const ESQUEMA* e) {
      const double pixels = std::max(e->nAnel, e->nNucleo);
      return pixels * (nivel.unidade - nivel.desconto) < 2147483648.0;
    });
  }
  // Doubles are exact up to 2^53, which the running sums of a whole strip must not pass.
  const double pixels =
      (colunas + 2.0 * grupo.margem + folgaDeLeitura) * (nivel.imagem.rows + 2.0 * grupo.margem);
  return nivel.maior * nivel.unidade * pixels < 9007199254740992.0;
}

}  // namespace

bool correlaNivel(const NIVEL& nivel, int L, const GRUPO& grupo, const AVALIADOR& avaliador,
                  cv::Mat_<float>& melhor, cv::Mat_<int>& qual) {
  if (!grupo.serve || nivel.tipo == REPRESENTACAO::nenhuma) return false;
  std::vector<const ESQUEMA*> kernels;
  for (const ESQUEMA& e : grupo.kernels) {
    if (e.sPir >= L) kernels.push_back(&e);
  }
  if (kernels.empty()) {
    melhor.setTo(-1.0F);
    qual.setTo(-1);
    return true;
  }
  // Strips at least as wide as a margin, so that not too much is made twice.
  const int colunas = std::min(std::max(colunasDeTrabalho, grupo.margem), nivel.imagem.cols);
  const double bytes =
      FAIXA<double>::bytes(grupo.margem, linhasDaFaixa(grupo.margem), colunas, grupo.planos);
  if (bytes > maximoDeBytes) return false;
  const TRABALHO trabalho{nivel, kernels, grupo, colunas, melhor, qual};
  if (!nivel.bytes.empty() && grupo.divisao == DIVISAO::linhas) {
    percorreCom(trabalho, avaliador.curtos);
    return true;
  }
  if (!nivel.bytes.empty() && grupo.divisao == DIVISAO::colunas && avaliador.descendo != nullptr) {
    percorreDescendo(trabalho, avaliador.descendo);
    return true;
  }
  const bool inteira = nivel.tipo == REPRESENTACAO::inteira;
  if (!cabe(nivel, kernels, grupo, colunas)) {
    if (!inteira) return false;
    return correlaNivel(comoReal(nivel), L, grupo, avaliador, melhor, qual);
  }
  if (inteira) {
    percorreCom(trabalho, avaliador.inteiros);
  } else {
    percorreCom(trabalho, avaliador.reais);
  }
  return true;
}
