#include "motor/rapida.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <type_traits>
#include <utility>

#include "motor/planos/faixa.h"

namespace motor {
namespace {

// The rows of a block, and the columns of a strip and its blocks. What a kernel reads of the planes
// for a block and the block's results (8 bytes a pixel, 128 kB) are to stay in the caches, which
// larger blocks leave; with narrower strips the margins beside them are made more often, and fewer
// rows leave each term less to do at a time.
constexpr int linhasDeTrabalho = 64;
constexpr int colunasDeTrabalho = 256;

// Terms as offsets from the pixel's place in the first plane, those to add and those to take off.
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

// Pieces of rows as offsets in the first plane.
template <class T>
std::vector<EXTREMOS> extremos(const std::vector<PEDACO>& pedacos, const FAIXA<T>& faixa) {
  std::vector<EXTREMOS> lista;
  for (const PEDACO& t : pedacos) {
    const auto linha = static_cast<std::int32_t>(faixa.passo) * t.linha;
    lista.push_back({linha + t.ultima, linha + t.antes});
  }
  return lista;
}

// The kernels with their terms as offsets in the strip. Planes of 16 bits are for the parts of a
// kernel, others for the whole.
template <class T>
std::vector<KERNELPRONTO> prontos(const std::vector<const ESQUEMA*>& kernels, double unidade,
                                  const FAIXA<T>& faixa) {
  std::vector<KERNELPRONTO> lista;
  for (const ESQUEMA* e : kernels) {
    const double nAnel = e->nAnel;
    const double nNucleo = e->nNucleo;
    KERNELPRONTO k{{}, nAnel, nNucleo, 1 / (nAnel * nNucleo * unidade), e->indice, {}, {}};
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

// Strip by strip from left to right, and in each block by block downward: calls `avalia(block,
// kernels)`, with `comeca()` before the first block of a strip.
template <class T, class COMECA, class AVALIACAO>
void percorreFaixas(const TRABALHO& t, COMECA comeca, AVALIACAO avalia) {
  const int colunas = colunasDaFaixa(t.nivel, t.grupo);
  FAIXA<T> faixa(t.grupo.margem, linhasDaFaixa(t.grupo.margem), colunas, t.grupo.planos);
  const std::vector<KERNELPRONTO> lista = prontos(t.kernels, t.nivel.unidade, faixa);
  const int rows = t.nivel.imagem.rows;
  const int cols = t.nivel.imagem.cols;
  for (int x0 = 0; x0 < cols; x0 += colunas) {
    faixa.enche(t.nivel, x0, 0, 0, 2 * faixa.margem);
    comeca();
    int feitas = 0;
    for (int y0 = 0; y0 < rows; y0 += linhasDeTrabalho) {
      if (t.pausa) t.pausa();
      if (feitas == faixa.linhas) {
        faixa.avanca(feitas);
        feitas = 0;
      }
      const int linhas = std::min(linhasDeTrabalho, rows - y0);
      const int de = 2 * faixa.margem + feitas;
      faixa.enche(t.nivel, x0, y0 - feitas, de, de + linhas);
      avalia(BLOCO<T>{faixa.origem() + static_cast<std::size_t>(feitas) * faixa.passo, faixa.passo,
                      linhas, std::min(colunas, cols - x0), t.melhor[y0] + x0, t.melhor.step1(),
                      t.qual[y0] + x0, t.qual.step1()},
             lista);
      feitas += linhas;
    }
  }
}

template <class T>
void percorreCom(const TRABALHO& t, AVALIA<T>* avalia) {
  percorreFaixas<T>(
      t, [] {}, avalia);
}

}  // namespace

int colunasDaFaixa(const NIVEL& nivel, const GRUPO& grupo) {
  // At least as wide as a margin, so that not too much is made twice.
  return std::min(std::max(colunasDeTrabalho, grupo.margem), nivel.imagem.cols);
}

double bytesDaFaixa(const NIVEL& nivel, const GRUPO& grupo) {
  return FAIXA<double>::bytes(grupo.margem, linhasDaFaixa(grupo.margem),
                              colunasDaFaixa(nivel, grupo), grupo.planos);
}

void percorre(const TRABALHO& t, AVALIA<std::int16_t>* avalia) {
  percorreCom(t, avalia);
}

void percorre(const TRABALHO& t, AVALIA<std::int32_t>* avalia) {
  percorreCom(t, avalia);
}

void percorre(const TRABALHO& t, AVALIA<double>* avalia) {
  percorreCom(t, avalia);
}

void percorre(const TRABALHO& t, DESCE* avalia) {
  DESCIDA descida;
  percorreFaixas<std::int16_t>(
      t, [&] { descida.kernels.clear(); },
      [&](const auto& bloco, const auto& lista) { avalia(bloco, lista, descida); });
}

}  // namespace motor
