#include "pim/letreiro.h"

#include <opencv2/imgproc.hpp>

namespace pim {

void putTxt(cv::Mat_<VEC3B>& img, int l, int c, const std::string& texto, const VEC3B& cor,
            int tamanho, bool centrado, const VEC3B& fundo) {
  constexpr int letra = cv::FONT_HERSHEY_SIMPLEX;
  const double escala = 0.33 * tamanho;
  const int traco = tamanho;
  int abaixo = 0;  // room that the letters take below the base line
  const cv::Size tam = cv::getTextSize(texto, letra, escala, traco, &abaixo);

  const int altura = tam.height + 2 * traco;
  const int largura = tam.width + 2 * traco;
  // A box that lies wholly outside has nothing to show, and far coordinates would overflow below.
  if (l < -altura || c < -largura || l > img.rows + altura || c > img.cols + largura) return;
  const int topo = centrado ? l - altura / 2 : l;
  const int esquerda = centrado ? c - largura / 2 : c;
  cv::rectangle(img, cv::Rect(esquerda, topo, largura, altura), cv::Scalar(fundo), cv::FILLED);
  // The pixels of the base line belong to the letters.
  const cv::Point base(esquerda + traco, topo + traco + tam.height - 1);
  cv::putText(img, texto, base, letra, escala, cv::Scalar(cor), traco, cv::LINE_8);
}

}  // namespace pim
