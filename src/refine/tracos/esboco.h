#pragma once

#include <array>
#include <cstddef>

#include "refine/ajuste/ajuste.h"

namespace refine {

// What a coarse fit leaves behind, to tell at little cost which shapes are worth a fine one.
enum ESBOCADO : std::size_t {
  eBorda,         // share of the contour with an edge
  ePerto,         // the same, edges counting less the farther they are
  ePerto2,        // its square
  eForte,         // the same, edges counting by their slope over the noise
  ePiorQuarto,    // least share of edges in a quarter of the contour
  eLogDegrau,     // grey outside less inside, along the contour
  eBeira,         // deviation of the grey just inside by that
  eEscuro,        // share of the contour that is darker inside
  eMiolo,         // deviation of the grey half way to the centre by its contrast
  eLogContraste,  // grey outside less half way to the centre
  eLogPerimetro,
  eLogAlongamento,
  eLogCorrelacao,
  eDegrauDesvio,  // log of the step by the picture's deviation
  quantosEsbocados
};
using ESBOCADOS = std::array<float, quantosEsbocados>;

// From the last step of a fit (`b`) of a shape in pixels of the reduction.
ESBOCADOS esboca(const ANDAR& andar, const FIGURA& f, double correl, const BANCADA& b);

}  // namespace refine
