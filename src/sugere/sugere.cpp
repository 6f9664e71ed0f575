#include "sugere/sugere.h"

#include <algorithm>
#include <utility>

#include "sugere/olhada.h"

namespace sugere {
namespace {

constexpr double menosPixels = 0.4e6;  // looked at, of all photographs together
constexpr double maisPixels = 2e6;
constexpr double minCorrComum = 0.02;
constexpr double minCorrPalido = 0.005;  // where nothing was found
constexpr double menosPorFoto = 65536;

// The views of all photographs: half as many pixels as one of them has, within limits.
std::vector<OLHADA> todasAsVistas(std::size_t quantas, const LEITOR& le) {
  std::vector<OLHADA> v;
  double uma = 0;
  for (std::size_t i = 0; i < quantas; ++i) {
    const cv::Mat_<unsigned char> foto = le(i);
    if (uma == 0) uma = static_cast<double>(foto.total());
    const double pixels =
        std::clamp(uma / 2, menosPixels, maisPixels) / static_cast<double>(quantas);
    for (VISTA& vista : vistas(foto, i, std::max(pixels, menosPorFoto))) {
      v.push_back({std::move(vista), {}, {}});
    }
  }
  return v;
}

}  // namespace

SUGESTAO sugere(std::size_t quantas, const LEITOR& le, const PEDIDO& pedido) {
  SUGESTAO s;
  s.olhadas = todasAsVistas(quantas, le);
  for (const double minCorr : {minCorrComum, minCorrPalido}) {
    olha(s.olhadas, {pedido.inverte, minCorr, pedido.modo, pedido.fios});
    s.escolha = escolhe(s.olhadas, quantas);
    s.escolha.minCorr = minCorr;
    if (pedido.inverte) s.escolha.inverte = *pedido.inverte;
    if (!s.escolha.geral) break;
  }
  return s;
}

}  // namespace sugere
