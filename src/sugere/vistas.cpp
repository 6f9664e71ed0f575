#include "sugere/vistas.h"

#include <algorithm>
#include <cmath>

namespace sugere {
namespace {

constexpr double menorRecorte = 90000;  // pixels; photographs of larger parts get several
constexpr int maisRecortes = 4;

// The fraction of a side where part `k` of photograph `numero` lies. Both sides together make an
// additive sequence that fills the square evenly (Roberts 2018).
double lugar(std::size_t numero, int k, double passo) {
  const double x =
      0.5 + passo * static_cast<double>(numero * maisRecortes + static_cast<std::size_t>(k));
  return x - std::floor(x);
}

VISTA recorte(const cv::Mat_<unsigned char>& foto, std::size_t numero, int k, double pixels) {
  const double escala = std::sqrt(pixels / static_cast<double>(foto.total()));
  const int rows = std::clamp(static_cast<int>(foto.rows * escala), 1, foto.rows);
  const int cols = std::clamp(static_cast<int>(foto.cols * escala), 1, foto.cols);
  VISTA v;
  v.foto = numero;
  v.linha = static_cast<int>(lugar(numero, k, 0.7548776662466927) * (foto.rows - rows));
  v.coluna = static_cast<int>(lugar(numero, k, 0.5698402909980532) * (foto.cols - cols));
  v.cinza = foto(cv::Rect(v.coluna, v.linha, cols, rows)).clone();
  v.menorLado = std::min(foto.rows, foto.cols);
  v.parte = static_cast<double>(v.cinza.total()) / static_cast<double>(foto.total());
  return v;
}

}  // namespace

std::vector<std::size_t> espalhados(std::size_t n, std::size_t quantos) {
  const std::size_t m = std::min(n, quantos);
  std::vector<std::size_t> v;
  for (std::size_t i = 0; i < m; ++i) v.push_back(m == 1 ? n / 2 : i * (n - 1) / (m - 1));
  return v;
}

cv::Mat_<unsigned char> reduzida(const cv::Mat_<unsigned char>& img, int fator) {
  if (fator <= 1) return img.clone();
  cv::Mat_<unsigned char> r(img.rows / fator, img.cols / fator);
  std::vector<unsigned> somas(static_cast<std::size_t>(r.cols));
  const unsigned area = static_cast<unsigned>(fator) * static_cast<unsigned>(fator);
  for (int l = 0; l < r.rows; ++l) {
    std::fill(somas.begin(), somas.end(), area / 2);
    for (int k = 0; k < fator; ++k) {
      const unsigned char* linha = img.ptr(l * fator + k);
      for (unsigned& s : somas) {
        for (int i = 0; i < fator; ++i) s += *linha++;
      }
    }
    std::transform(somas.begin(), somas.end(), r.ptr(l),
                   [&](unsigned s) { return static_cast<unsigned char>(s / area); });
  }
  return r;
}

refine::FIGURA ampliada(refine::FIGURA f, int fator) {
  const double meio = (fator - 1) / 2.0;
  f.l = f.l * fator + meio;
  f.c = f.c * fator + meio;
  f.d1 *= fator;
  f.d2 *= fator;
  return f;
}

std::vector<VISTA> vistas(const cv::Mat_<unsigned char>& foto, std::size_t numero, double pixels) {
  const auto total = static_cast<double>(foto.total());
  if (foto.empty()) return {};
  const int menor = std::min(foto.rows, foto.cols);
  if (total <= pixels) return {{numero, foto.clone(), 1, 0, 0, menor, 1}};
  const double metade = pixels / 2;
  const int quantos = std::clamp(static_cast<int>(metade / menorRecorte), 1, maisRecortes);
  std::vector<VISTA> v;
  for (int k = 0; k < quantos; ++k) v.push_back(recorte(foto, numero, k, metade / quantos));
  const int fator = static_cast<int>(std::ceil(std::sqrt(total / metade)));
  if (fator <= menor) v.push_back({numero, reduzida(foto, fator), fator, 0, 0, menor, 1});
  return v;
}

bool mostra(const VISTA& v, double diametro) {
  if (v.reducao > 1) return diametro >= 8.0 * v.reducao;
  return v.parte >= 1 || diametro <= std::min(v.cinza.rows, v.cinza.cols) / 3.0;
}

}  // namespace sugere
