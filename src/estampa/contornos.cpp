#include "estampa/contornos.h"

#include <algorithm>
#include <opencv2/imgproc.hpp>
#include <string>

#include "measure/contorno.h"
#include "pim/letreiro.h"

namespace estampa {
namespace {

// Colours that colour-blind readers tell apart too (Okabe and Ito 2008), as on the report page.
cv::Scalar corDaLetra(char letra) {
  if (letra == 'c') return {178, 114, 0};
  if (letra == 'q') return {0, 94, 213};
  return letra == 'r' ? cv::Scalar(115, 158, 0) : cv::Scalar(167, 121, 204);
}

}  // namespace

void desenhaContornos(cv::Mat_<pim::VEC3B>& foto, const std::vector<measure::GRAO>& graos) {
  constexpr int bits = 8;  // of the fractions of a pixel
  constexpr double partes = 1 << bits;
  for (const measure::GRAO& g : graos) {
    std::vector<cv::Point> pontos;
    for (const measure::PONTO& p : measure::contorno(g.figura, measure::desvioUsual)) {
      pontos.emplace_back(pim::arredonda(p.x * partes), pim::arredonda(p.y * partes));
    }
    cv::polylines(foto, pontos, true, corDaLetra(g.figura.forma), 1, cv::LINE_AA, bits);
  }
}

void desenhaIndices(cv::Mat_<pim::VEC3B>& foto, const std::vector<measure::GRAO>& graos) {
  constexpr int altura = 9;  // of the letters and the box around them, pixels
  constexpr int largura = 7;
  for (const measure::GRAO& g : graos) {
    const std::string texto = std::to_string(g.indice);
    const int margem = largura * static_cast<int>(texto.size());
    const int l = pim::arredonda(g.figura.l) - altura / 2;
    const int c = pim::arredonda(g.figura.c + measure::meiaCaixa(g.figura).x) + 3;
    pim::putTxt(foto, l, std::min(c, foto.cols - margem), texto, pim::VEC3B(0, 0, 255), 1, false,
                pim::VEC3B(255, 255, 255));
  }
}

}  // namespace estampa
