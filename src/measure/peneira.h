#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <vector>

#include "measure/distribuicao.h"

namespace measure {

// What stays on one sieve of a column: the grains with de <= size < ate. A grain as large as an
// aperture does not pass it.
struct PENEIRA {
  double de = 0;                                         // its aperture; 0 for the pan
  double ate = std::numeric_limits<double>::infinity();  // that of the sieve above it
  std::size_t graos = 0;
  std::optional<double> retida;    // share of the weight, 0 to 1; empty without grains
  std::optional<double> passante;  // share of the weight that passes it: sizes below `de`
};

// Sieves the grains of a curve. `aberturas` are in the unit of its sizes; the result has one class
// more, the first for what is below the smallest aperture and the last for what is at or above the
// largest. pim::erro when an aperture is not finite or not larger than the one before it, or the
// first is not above 0. Without apertures there are no classes.
std::vector<PENEIRA> peneira(const CURVA& c, const std::vector<double>& aberturas);

// Ends in the error of `peneira` for apertures that it refuses; for settings that are read before
// there are grains.
void confereAberturas(const std::vector<double>& aberturas);

}  // namespace measure
