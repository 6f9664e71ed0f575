#include "refine/foto.h"

#include <algorithm>
#include <cmath>

#include "examples/cenas/forma/contorno.h"
#include "examples/cenas/imagem/desfoque.h"
#include "examples/cenas/imagem/pintura.h"

cv::Mat_<unsigned char> fotografaFormas(cv::Size tamanho, const std::vector<refine::FIGURA>& formas,
                                        const LUZ& luz, std::mt19937& g) {
  cv::Mat_<float> cena(tamanho, static_cast<float>(luz.fundo));
  for (const refine::FIGURA& f : formas) {
    const GRAO grao{f.forma, f.l, f.c, f.d1, f.d2, f.ang};
    cenas::cobre(cena, cenas::cobertura(cenas::contornoDe(grao)), static_cast<float>(luz.grao));
  }
  if (luz.desfoque > 0) cena = cenas::desfoca(cena, luz.desfoque);
  std::normal_distribution<double> ruido(0, 1);
  cv::Mat_<unsigned char> foto(tamanho);
  for (int l = 0; l < foto.rows; ++l) {
    for (int c = 0; c < foto.cols; ++c) {
      const double grey =
          255 * static_cast<double>(cena(l, c)) + (luz.ruido > 0 ? luz.ruido * ruido(g) : 0.0);
      foto(l, c) = static_cast<unsigned char>(std::clamp(std::floor(grey + 0.5), 0.0, 255.0));
    }
  }
  return foto;
}
