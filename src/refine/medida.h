#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "refine/ajuste/ajuste.h"
#include "refine/tracos/tracos.h"

namespace refine {

// A shape measured as exactly as the picture allows.
struct MEDIDA {
  FIGURA figura;
  double rampa = 0;                       // median slope of the edges, grey a pixel
  double desfoque = 1;                    // variance of the slope's peak, square pixels
  double residuo = 0;                     // scatter of the edges about the outline, robust, pixels
  double quantas = 0;                     // edges that count, in pixels of outline
  double vista = 0;                       // share of the visible outline that has an edge
  std::array<double, parametros> erro{};  // standard errors of row, column, d1, d2 (pixels) and
                                          // angle (degrees)
};

// Fits the shape, its family kept, with samples about a pixel apart on the whole picture.
// Outline inside of `encobrem` is out of sight.
std::optional<MEDIDA> mede(const ANDAR& foto, const FIGURA& f, ENCOBREM encobrem, BANCADA& b);

// The same shape with the innermost edges that it has on one side and those of `m` on the other:
// what it is where its outline takes a cast shadow in. Nothing when there is no such shape.
std::optional<MEDIDA> semSombra(const ANDAR& foto, const MEDIDA& m, ENCOBREM encobrem, BANCADA& b);

// The measure in the family of `familias` that explains the edges with the fewest parameters.
std::optional<MEDIDA> medeMelhor(const ANDAR& foto, const FIGURA& f, std::string_view familias,
                                 ENCOBREM encobrem, BANCADA& b);

}  // namespace refine
