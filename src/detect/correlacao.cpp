#include "detect/correlacao.h"

#include <algorithm>
#include <opencv2/imgproc.hpp>

#include "detect/rapida.h"

namespace {

// Where `correl` beats the best so far, stores it there with the index k of its kernel.
void guardaMelhor(const cv::Mat_<float>& correl, int k, cv::Mat_<float>& melhor,
                  cv::Mat_<int>& indice) {
  for (int l = 0; l < correl.rows; ++l) {
    const float* nova = correl[l];
    float* best = melhor[l];
    int* qual = indice[l];
    for (int c = 0; c < correl.cols; ++c) {
      if (nova[c] > best[c]) {
        best[c] = nova[c];
        qual[c] = k;
      }
    }
  }
}

void filtra(const cv::Mat_<float>& nivel, const cv::Mat_<float>& kernel, cv::Mat_<float>& saida) {
  cv::filter2D(nivel, saida, CV_32F, kernel, cv::Point(-1, -1), 0.0, cv::BORDER_REPLICATE);
}

// One kernel at a time through the general filter: any kernel, any values.
void correlaNivelGeral(const NIVEL& nivel, const std::vector<const MASCARA*>& grupo,
                       const std::vector<int>& indices, cv::Mat_<float>& melhor,
                       cv::Mat_<int>& qual) {
  melhor.setTo(-1.0F);
  qual.setTo(-1);
  cv::Mat_<float> correl;
  for (std::size_t i = 0; i < grupo.size(); ++i) {
    filtra(nivel.imagem, grupo[i]->kernel, correl);
    guardaMelhor(correl, indices[i], melhor, qual);
  }
}

}  // namespace

void correlaPiramide(const PIRAMIDE& piramide, const cv::Mat_<float>& kernel,
                     std::vector<cv::Mat_<float>>& saida, int ultimo) {
  saida.resize(piramide.size());
  for (std::size_t L = 0; L < piramide.size(); ++L) saida[L].create(piramide[L].size());
  for (std::size_t L = 0; static_cast<int>(L) <= ultimo; ++L) {
    filtra(piramide[L], kernel, saida[L]);
  }
}

void correlaGrupo(const NIVEIS& niveis, const std::vector<MASCARA>& kernels, int primeiro,
                  int ultimo, MELHORCORREL& melhorCorrel, MELHORKERNEL& melhorKernel) {
  melhorCorrel.resize(niveis.size());
  melhorKernel.resize(niveis.size());
  const GRUPO grupo = preparaGrupo(kernels, primeiro, ultimo);
  const AVALIADOR avaliador = avaliadores().front();
  for (std::size_t L = 0; L < niveis.size(); ++L) {
    melhorCorrel[L].create(niveis[L].imagem.size());
    melhorKernel[L].create(niveis[L].imagem.size());
    if (correlaNivel(niveis[L], static_cast<int>(L), grupo, avaliador, melhorCorrel[L],
                     melhorKernel[L])) {
      continue;
    }
    std::vector<const MASCARA*> aplicados;
    std::vector<int> indices;
    for (int k = primeiro; k <= ultimo; ++k) {
      const MASCARA& m = kernels[static_cast<std::size_t>(k)];
      if (m.sPir < static_cast<int>(L)) continue;
      aplicados.push_back(&m);
      indices.push_back(k);
    }
    correlaNivelGeral(niveis[L], aplicados, indices, melhorCorrel[L], melhorKernel[L]);
  }
}

void correlaGrupo(const PIRAMIDE& piramide, const std::vector<MASCARA>& kernels, int primeiro,
                  int ultimo, MELHORCORREL& melhorCorrel, MELHORKERNEL& melhorKernel) {
  correlaGrupo(preparaNiveis(piramide), kernels, primeiro, ultimo, melhorCorrel, melhorKernel);
}
