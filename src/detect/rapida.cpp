#include "detect/rapida.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "detect/avaliacao.h"
#include "detect/escolha.h"
#include "detect/faixa.h"

namespace {

constexpr int linhasDeTrabalho = 64;
constexpr int colunasDeTrabalho = 256;
constexpr double maximoDeBytes = 256.0 * (1 << 20);

int alcance(const std::vector<TERMO>& termos) {
  int maior = 0;
  for (const TERMO& t : termos) maior = std::max({maior, std::abs(t.dl), std::abs(t.dc)});
  return maior;
}

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
std::vector<KERNELPRONTO> prontos(const std::vector<const ESQUEMA*>& kernels, double unidade,
                                  const FAIXA<T>& faixa) {
  std::vector<KERNELPRONTO> lista;
  for (const ESQUEMA* e : kernels) {
    const double anel = e->nAnel;
    const double nucleo = e->nNucleo;
    KERNELPRONTO k{{}, {}, {}, {}, anel, nucleo, 1 / (anel * nucleo * unidade), e->indice};
    separa(e->tudo, faixa, k.maisTudo, k.menosTudo);
    separa(e->nucleo, faixa, k.maisNucleo, k.menosNucleo);
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

GRUPO preparaGrupo(const std::vector<MASCARA>& kernels, int primeiro, int ultimo) {
  GRUPO grupo;
  std::vector<LADO> todos;
  std::vector<std::vector<LADO>> lados;  // two regions a kernel
  for (int k = primeiro; k <= ultimo; ++k) {
    const MASCARA& m = kernels[static_cast<std::size_t>(k)];
    const std::optional<REGIOES> r = regioesDoKernel(m.kernel);
    if (!r) {
      grupo.serve = false;
      return grupo;
    }
    for (const REGIAO& regiao : {r->tudo, r->nucleo}) {
      lados.push_back(ladosDaRegiao(regiao));
      todos.insert(todos.end(), lados.back().begin(), lados.back().end());
    }
    grupo.kernels.push_back({k, m.sPir, {}, {}, r->nAnel, r->nNucleo});
  }
  const std::vector<ESCADA> escadas = escolheEscadas(todos);
  grupo.planos = planosDasEscadas(escadas);
  for (std::size_t i = 0; i < grupo.kernels.size(); ++i) {
    ESQUEMA& e = grupo.kernels[i];
    e.tudo = termosDosLados(lados[2 * i], escadas);
    e.nucleo = termosDosLados(lados[2 * i + 1], escadas);
    grupo.margem = std::max({grupo.margem, alcance(e.tudo), alcance(e.nucleo)});
  }
  return grupo;
}

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
