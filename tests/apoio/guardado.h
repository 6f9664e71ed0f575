#pragma once

#include <opencv2/core.hpp>
#include <sstream>
#include <string>

// How a result differs from the one stored: the first places, so that a reader sees what changed.
// Empty when they are the same.

std::string diferencaDeLinhas(const std::string& obtido, const std::string& guardado);

inline constexpr int maximoDeDiferencas = 5;

template <class PIXEL>
std::string diferencaDePixels(const cv::Mat_<PIXEL>& obtida, const cv::Mat_<PIXEL>& guardada) {
  std::ostringstream texto;
  if (obtida.size() != guardada.size()) {
    texto << "size: stored " << guardada.size() << ", obtained " << obtida.size() << '\n';
    return texto.str();
  }
  int diferentes = 0;
  for (int l = 0; l < obtida.rows; ++l) {
    for (int c = 0; c < obtida.cols; ++c) {
      if (obtida(l, c) == guardada(l, c) || ++diferentes > maximoDeDiferencas) continue;
      const cv::Rect um(c, l, 1, 1);
      texto << "row " << l << ", column " << c << ": stored " << cv::Mat(guardada(um))
            << ", obtained " << cv::Mat(obtida(um)) << '\n';
    }
  }
  if (diferentes > 0) texto << diferentes << " pixels differ\n";
  return texto.str();
}
