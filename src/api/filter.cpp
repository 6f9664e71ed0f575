#include "vorplex/filter.h"

#include <bit>
#include <cstddef>
#include <cstdint>

#include "api/registros.h"
#include "api/traduz.h"
#include "filter/filtinter.h"
#include "filter/filtraveis.h"

namespace vorplex {
namespace {

LIMIAR limiar(const Threshold& t) {
  return {t.min_correlation, t.max_overlap};
}

// Bit by bit, so that a NaN equals itself.
bool mesmo(const MAXLOCAL& a, const MAXLOCAL& b) {
  const auto bits = [](double x) { return std::bit_cast<std::uint64_t>(x); };
  return std::bit_cast<std::uint32_t>(a.correl) == std::bit_cast<std::uint32_t>(b.correl) &&
         a.forma == b.forma && a.li == b.li && a.ci == b.ci && bits(a.d1) == bits(b.d1) &&
         bits(a.d2) == bits(b.d2) && bits(a.ang) == bits(b.ang);
}

}  // namespace

std::vector<Detection> filter(const Extent& picture, const std::vector<Detection>& detections,
                              const Thresholds& thresholds) {
  return api::traduz([&] {
    const cv::Size lados = api::tamanho(picture);
    const LIMIARES limiares = {limiar(thresholds.circle), limiar(thresholds.rectangle),
                               limiar(thresholds.square), limiar(thresholds.ellipse)};
    const std::vector<MAXLOCAL> entrada = api::maxLocais(detections);
    ::filter::exigeFiltraveis(entrada, limiares, "");
    std::vector<MAXLOCAL> mantidos;
    filtInter(entrada, mantidos, lados, limiares);
    // What was kept is a part of what was given, in the same order.
    std::vector<Detection> saida;
    saida.reserve(mantidos.size());
    std::size_t i = 0;
    for (const MAXLOCAL& m : mantidos) {
      while (!mesmo(entrada.at(i), m)) ++i;
      saida.push_back(detections[i++]);
    }
    return saida;
  });
}

}  // namespace vorplex
