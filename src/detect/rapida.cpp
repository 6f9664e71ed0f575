#include "detect/rapida.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <type_traits>

#include "detect/faixa.h"

namespace {

constexpr int linhasDeTrabalho = 64;
constexpr int colunasDeTrabalho = 256;
constexpr double maximoDeBytes = 256.0 * (1 << 20);

template <class T>
void separa(const std::vector<TERMO>& termos, const FAIXA<T>& faixa,
            std::vector<std::int32_t>& mais, std::vector<std::int32_t>& menos) {
  for (const TERMO& t : termos) {
    const auto desloc = static_cast<std::ptrdiff_t>(faixa.tamanho) * t.plano +
                        static_cast<std::ptrdiff_t>(faixa.passo) * t.dl + t.dc;
    (t.sinal > 0 ? mais : menos).push_back(static_cast<std::int32_t>(desloc));
  }
  // In order of memory, the nearest reads follow each other.
  std::sort(mais.begin(), mais.end());
  std::sort(menos.begin(), menos.end());
}

template <class T>
std::span<const PARTE> partes(const ESQUEMA& e) {
  if constexpr (std::is_same_v<T, std::int16_t>) {
    return e.curtas;
  } else {
    return {&e.inteira, 1};
  }
}

template <class T>
std::vector<KERNELPRONTO> prontos(const std::vector<const ESQUEMA*>& kernels, double unidade,
                                  const FAIXA<T>& faixa) {
  std::vector<KERNELPRONTO> lista;
  for (const ESQUEMA* e : kernels) {
    const double anel = e->nAnel;
    const double nucleo = e->nNucleo;
    KERNELPRONTO k{{}, anel, nucleo, 1 / (anel * nucleo * unidade), e->indice};
    for (const PARTE& p : partes<T>(*e)) {
      SOMAS& s = k.partes.emplace_back();
      separa(p.tudo, faixa, s.maisTudo, s.menosTudo);
      separa(p.nucleo, faixa, s.maisNucleo, s.menosNucleo);
    }
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

// Strip by strip from left to right, and in each block by block downward.
template <class T>
void percorre(const NIVEL& nivel, const std::vector<const ESQUEMA*>& kernels, const GRUPO& grupo,
              int colunas, AVALIA<T>* avalia, cv::Mat_<float>& melhor, cv::Mat_<int>& qual) {
  FAIXA<T> faixa(grupo.margem, linhasDaFaixa(grupo.margem), colunas, grupo.planos);
  const std::vector<KERNELPRONTO> lista = prontos(kernels, nivel.unidade, faixa);
  const int rows = nivel.imagem.rows;
  const int cols = nivel.imagem.cols;
  for (int x0 = 0; x0 < cols; x0 += colunas) {
    faixa.enche(nivel, x0, 0, 0, 2 * faixa.margem);
    int feitas = 0;
    for (int y0 = 0; y0 < rows; y0 += linhasDeTrabalho) {
      if (feitas == faixa.linhas) {
        faixa.avanca(feitas);
        feitas = 0;
      }
      const int linhas = std::min(linhasDeTrabalho, rows - y0);
      const int de = 2 * faixa.margem + feitas;
      faixa.enche(nivel, x0, y0 - feitas, de, de + linhas);
      avalia({faixa.origem() + static_cast<std::size_t>(feitas) * faixa.passo, faixa.passo, linhas,
              std::min(colunas, cols - x0), melhor[y0] + x0, melhor.step1(), qual[y0] + x0,
              qual.step1()},
             lista);
      feitas += linhas;
    }
  }
}

// Whether planes of 16 bits will do: a photograph's bytes, and kernels divided for them.
bool ehCurto(const NIVEL& nivel, const std::vector<const ESQUEMA*>& kernels) {
  return !nivel.bytes.empty() && std::all_of(kernels.begin(), kernels.end(),
                                             [](const ESQUEMA* e) { return !e->curtas.empty(); });
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
  if (ehCurto(nivel, kernels)) {
    percorre(nivel, kernels, grupo, colunas, avaliador.curtos, melhor, qual);
    return true;
  }
  const bool inteira = nivel.tipo == REPRESENTACAO::inteira;
  if (!cabe(nivel, kernels, grupo, colunas)) {
    if (!inteira) return false;
    return correlaNivel(comoReal(nivel), L, grupo, avaliador, melhor, qual);
  }
  if (inteira) {
    percorre(nivel, kernels, grupo, colunas, avaliador.inteiros, melhor, qual);
  } else {
    percorre(nivel, kernels, grupo, colunas, avaliador.reais, melhor, qual);
  }
  return true;
}
