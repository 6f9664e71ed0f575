#include "api/registros.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "pim/converte.h"
#include "vorplex/error.h"

namespace api {
namespace {

// What the programs read as well.
constexpr int maiorLado = 1 << 20;
constexpr std::int64_t maximoDePixels = 1 << 30;

template <class PIXEL, class IMAGE>
cv::Mat_<PIXEL> matrizDe(const IMAGE& image) {
  const cv::Size lados = tamanho(image.extent);
  if (lados.empty()) return {};
  const std::size_t linha =
      passo({image.pixels, lados, image.stride}, sizeof(PIXEL), sizeof(PIXEL));
  // The matrix knows no pixels that can only be read.
  return cv::Mat_<PIXEL>(lados.height, lados.width,
                         const_cast<PIXEL*>(image.pixels),  // NOLINT(*-const-cast)
                         linha);
}

}  // namespace

MAXLOCAL maxLocal(const vorplex::Detection& d) {
  return {d.correlation, d.shape, pim::arredonda(d.row), pim::arredonda(d.column), d.d1,
          d.d2,          d.angle};
}

std::vector<MAXLOCAL> maxLocais(const std::vector<vorplex::Detection>& v) {
  std::vector<MAXLOCAL> saida;
  saida.reserve(v.size());
  std::transform(v.begin(), v.end(), std::back_inserter(saida), maxLocal);
  return saida;
}

vorplex::Detection deteccao(const MAXLOCAL& m) {
  return {m.correl, m.forma, static_cast<double>(m.li), static_cast<double>(m.ci), m.d1,
          m.d2,     m.ang};
}

std::vector<vorplex::Detection> deteccoes(const std::vector<MAXLOCAL>& v) {
  std::vector<vorplex::Detection> saida;
  saida.reserve(v.size());
  std::transform(v.begin(), v.end(), std::back_inserter(saida), deteccao);
  return saida;
}

cv::Size tamanho(const vorplex::Extent& e) {
  const auto cabe = [](int lado) { return lado >= 0 && lado <= maiorLado; };
  if (!cabe(e.rows) || !cabe(e.columns) || std::int64_t{e.rows} * e.columns > maximoDePixels) {
    throw vorplex::Error("image extent out of range");
  }
  return {e.columns, e.rows};
}

std::size_t passo(const LUGAR& lugar, std::size_t pixel, std::size_t parte) {
  if (lugar.pixels == nullptr) throw vorplex::Error("image without pixels");
  const auto linha = static_cast<std::ptrdiff_t>(pixel) * lugar.lados.width;
  const std::ptrdiff_t n = lugar.passo == 0 ? linha : lugar.passo;
  if (n < linha || n % static_cast<std::ptrdiff_t>(parte) != 0) {
    throw vorplex::Error("image stride out of range");
  }
  return static_cast<std::size_t>(n);
}

cv::Mat_<unsigned char> matriz(const vorplex::Image& image) {
  return matrizDe<unsigned char>(image);
}

cv::Mat_<float> matriz(const vorplex::FloatImage& image) {
  return matrizDe<float>(image);
}

}  // namespace api
