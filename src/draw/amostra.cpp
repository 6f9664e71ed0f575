#include "draw/amostra.h"

#include <cstdint>

#include "pim/erro.h"

cv::Mat_<pim::VEC3B> extraiAm(MAXLOCAL m, cv::Mat_<pim::VEC3B> imagem, double fatorZoom) {
  m.d1 *= fatorZoom;
  m.d2 *= fatorZoom;
  cv::Mat_<unsigned char> g;
  mascaraMaxLocal(m, g);
  pim::afirma(g.rows % 2 == 1 && g.cols % 2 == 1, "g.rows%2==1 && g.cols%2==1",
              {"vorplex", __LINE__,
               "cv::Mat_<cv::Vec<unsigned char, 3> > extraiAm(MAXLOCAL, "
               "cv::Mat_<cv::Vec<unsigned char, 3> >, double)"});
  cv::Mat_<pim::VEC3B> amostra(g.size(), pim::VEC3B(0, 0, 0));
  for (int i = 0; i < g.rows; ++i) {
    const std::int64_t y = std::int64_t{m.li} - g.rows / 2 + i;
    if (y < 0 || y >= imagem.rows) continue;
    for (int j = 0; j < g.cols; ++j) {
      const std::int64_t x = std::int64_t{m.ci} - g.cols / 2 + j;
      if (x < 0 || x >= imagem.cols || g(i, j) != 0) continue;
      amostra(i, j) = imagem(static_cast<int>(y), static_cast<int>(x));
    }
  }
  return amostra;
}
