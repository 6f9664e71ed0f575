#include "motor/caminho.h"

#include <algorithm>
#include <vector>

#include "motor/geral.h"
#include "motor/rapida.h"

namespace motor {
namespace {

// What the planes of a strip may take. With three to nine planes, as groups have, kernels of some
// 2,200 to 1,300 px need as much; the general filter does larger ones through their spectrum.
constexpr double maximoDeBytes = 256.0 * (1 << 20);

std::vector<const ESQUEMA*> aplicados(const GRUPO& grupo, int L) {
  std::vector<const ESQUEMA*> kernels;
  for (const ESQUEMA& e : grupo.kernels) {
    if (e.sPir >= L) kernels.push_back(&e);
  }
  return kernels;
}

// Whether the sums over ring and core fit 32 bits.
bool cabeEm32(const NIVEL& nivel, const std::vector<const ESQUEMA*>& kernels) {
  return std::all_of(kernels.begin(), kernels.end(), [&](const ESQUEMA* e) {
    const double pixels = std::max(e->nAnel, e->nNucleo);
    return pixels * (nivel.unidade - nivel.desconto) < 2147483648.0;
  });
}

// Doubles are exact up to 2^53, which the running sums of a whole strip must not pass.
bool cabeEmReais(const NIVEL& nivel, const GRUPO& grupo) {
  const double colunas = colunasDaFaixa(nivel, grupo) + 2.0 * grupo.margem + folgaDeLeitura;
  const double pixels = colunas * (nivel.imagem.rows + 2.0 * grupo.margem);
  return nivel.maior * unidadeReal * pixels < 9007199254740992.0;
}

CAMINHO escolhe(const TRABALHO& t, const AVALIADOR& avaliador) {
  const bool serve = t.grupo.serve && t.nivel.tipo != REPRESENTACAO::nenhuma;
  if (!serve || t.kernels.empty() || bytesDaFaixa(t.nivel, t.grupo) > maximoDeBytes) {
    return CAMINHO::geral;
  }
  const DIVISAO divisao = t.nivel.bytes.empty() ? DIVISAO::nenhuma : t.grupo.divisao;
  if (divisao == DIVISAO::linhas) return CAMINHO::curtos;
  if (divisao == DIVISAO::colunas && avaliador.descendo != nullptr) return CAMINHO::descendo;
  if (t.nivel.tipo == REPRESENTACAO::inteira && cabeEm32(t.nivel, t.kernels)) {
    return CAMINHO::inteiros;
  }
  return cabeEmReais(t.nivel, t.grupo) ? CAMINHO::reais : CAMINHO::geral;
}

}  // namespace

CAMINHO correlaCom(const AVALIADOR& avaliador, const NIVEL& nivel, int L, const GRUPO& grupo,
                   cv::Mat_<float>& melhor, cv::Mat_<int>& qual, const pim::PAUSA& pausa) {
  melhor.create(nivel.imagem.size());
  qual.create(nivel.imagem.size());
  const TRABALHO t{nivel, aplicados(grupo, L), grupo, pausa, melhor, qual};
  const CAMINHO caminho = escolhe(t, avaliador);
  switch (caminho) {
    case CAMINHO::curtos:
      percorre(t, avaliador.curtos);
      break;
    case CAMINHO::descendo:
      percorre(t, avaliador.descendo);
      break;
    case CAMINHO::inteiros:
      percorre(t, avaliador.inteiros);
      break;
    case CAMINHO::reais:
      percorre({comoReal(nivel), t.kernels, grupo, pausa, melhor, qual}, avaliador.reais);
      break;
    case CAMINHO::geral:
      correlaGeral(nivel.imagem, t.kernels, pausa, melhor, qual);
  }
  return caminho;
}

}  // namespace motor
