#include "vorplex/picture.h"

#include <opencv2/imgproc.hpp>

#include "api/registros.h"
#include "api/traduz.h"
#include "pim/oitobits.h"
#include "vorplex/error.h"

namespace vorplex {
namespace {

int profundidade(Depth d) {
  if (d == Depth::bytes) return CV_8U;
  return d == Depth::words ? CV_16U : CV_32F;
}

// The caller's pixels, which must not be written.
cv::Mat matrizDe(const Picture& p) {
  if (p.channels != 1 && p.channels != 3 && p.channels != 4) {
    throw Error("number of channels out of range");
  }
  const cv::Size lados = api::tamanho(p.extent);
  const int tipo = CV_MAKETYPE(profundidade(p.depth), p.channels);
  if (lados.empty()) return {lados, tipo};
  const std::size_t passo =
      api::passo({p.pixels, lados, p.stride}, CV_ELEM_SIZE(tipo), CV_ELEM_SIZE1(tipo));
  // The matrix knows no pixels that can only be read.
  return {lados, tipo, const_cast<void*>(p.pixels), passo};  // NOLINT(*-const-cast)
}

// In bytes of `canais` channels.
std::vector<std::uint8_t> converte(const Picture& p, int canais) {
  return api::traduz([&] {
    const cv::Mat img = matrizDe(p);
    std::vector<std::uint8_t> saida(img.total() * static_cast<std::size_t>(canais));
    if (saida.empty()) return saida;
    const cv::Mat oito = pim::para8BitsSemAlfa(img);
    cv::Mat destino(img.size(), CV_8UC(canais), saida.data());
    if (oito.channels() == canais) {
      oito.copyTo(destino);
    } else {
      cv::cvtColor(oito, destino, canais == 1 ? cv::COLOR_RGB2GRAY : cv::COLOR_GRAY2RGB);
    }
    return saida;
  });
}

}  // namespace

std::vector<std::uint8_t> grey(const Picture& picture) {
  return converte(picture, 1);
}

std::vector<std::uint8_t> rgb(const Picture& picture) {
  return converte(picture, 3);
}

}  // namespace vorplex
