#include "filter/filtraveis.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <set>

#include "pim/erro.h"

namespace filter {
namespace {

// Pixels of the masks of all distinct shapes of a list, each drawn at least once: half a minute's
// work. A search finds at most as many shapes as it has kernels and levels, so that a list of its
// own stays below a tenth of this.
constexpr double maximoDePixels = 34359738368.0;

}  // namespace

void exigeFiltraveis(const std::vector<MAXLOCAL>& v, const LIMIARES& limiares,
                     const std::string& nome) {
  std::set<std::array<std::uint64_t, 4>> vistas;  // bits, so that NaN is a value too
  double pixels = 0;
  for (std::size_t k = 0; k < v.size(); ++k) {
    const MAXLOCAL& m = v[k];
    if (static_cast<double>(m.correl) < limiares.de(m.forma).minCorr) continue;
    const double lado = exigeDesenhavel(m, nome, k);
    const bool nova =
        lado > 0 &&
        vistas
            .insert({static_cast<unsigned char>(m.forma), std::bit_cast<std::uint64_t>(m.d1),
                     std::bit_cast<std::uint64_t>(m.d2), std::bit_cast<std::uint64_t>(m.ang)})
            .second;
    if (nova) pixels += lado * lado;
    if (pixels > maximoDePixels) pim::erro("Erro: Formas grandes demais em ", nome);
  }
}

}  // namespace filter
