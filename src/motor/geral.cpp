#include "motor/geral.h"

#include <opencv2/imgproc.hpp>

namespace motor {
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

}  // namespace

void filtra(const cv::Mat_<float>& imagem, const cv::Mat_<float>& pesos, cv::Mat_<float>& saida) {
  // Isolated: pixels outside a part of a larger image are not its own.
  cv::filter2D(imagem, saida, CV_32F, pesos, cv::Point(-1, -1), 0.0,
               cv::BORDER_REPLICATE | cv::BORDER_ISOLATED);
}

void correlaGeral(const cv::Mat_<float>& imagem, const std::vector<const ESQUEMA*>& kernels,
                  const pim::PAUSA& pausa, cv::Mat_<float>& melhor, cv::Mat_<int>& qual) {
  melhor.setTo(-1.0F);
  qual.setTo(-1);
  cv::Mat_<float> correl;
  for (const ESQUEMA* e : kernels) {
    if (pausa) pausa();
    filtra(imagem, kernels::imagemDoKernel(e->mascara), correl);
    guardaMelhor(correl, e->indice, melhor, qual);
  }
}

}  // namespace motor
