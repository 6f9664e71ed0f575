#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "refine/ajuste/ajuste.h"

namespace refine {

// What is looked at to judge whether a fitted shape is a grain.
enum TRACO : std::size_t {
  bordaVista,       // share of the contour with an edge
  bordaVista2,      // its square
  bordaForte,       // the same, edges counting by their slope over the noise
  uniforme,         // lower quartile of the slopes by the upper one
  escuroPorDentro,  // share of the contour that is darker inside than outside
  alinhada,         // cosine between slope and normal, mean over the edges
  aspera,           // scatter of the edges about the contour, by the reach of the profiles
  asperaRelativa,   // the same by the lesser half size
  separacao,        // variance between inside and ring by the total
  separacao2,
  nucleoEscuro,    // share of the inside darker than the middle of both
  anelClaro,       // share of the ring brighter than that
  contrasteRuido,  // contrast by the noise, at most 6
  logContraste,
  logPerimetro,
  logCorrelacao,
  logRampa,  // median slope by the picture's median slope
  logAlongamento,
  contrasteDesvio,  // contrast by the picture's deviation
  maiorFalha,       // longest stretch of the contour without an edge
  piorQuarto,       // least share of edges in a quarter of the contour
  texturaDentro,    // deviation of the inside by the contrast
  texturaFora,
  degrauUniforme,  // lower quartile of the steps across the contour by their median
  visivel,         // share of the contour in the picture
  nitidez,         // log of the median variance of the slope's peak
  centroEscuro,    // (ring - innermost third) by the contrast
  beiraEscura,     // (ring - outermost third) by the contrast
  ehQuadrado,
  ehRetangulo,
  ehElipse,
  quantosTracos
};

using TRACOS = std::array<float, quantosTracos>;

struct EXAME {
  TRACOS tracos{};
  float contraste = 0;  // ring less inside, grey
  float dentro = 0;     // mean grey inside
  float fora = 0;       // of the ring
};

// Shapes, in pixels of the reduction, that may hide part of the one looked at.
using ENCOBREM = std::span<const FIGURA>;

// Looks at a shape in pixels of the reduction. `correl` is the correlation that it was found by.
// What lies inside of `encobrem` is taken for out of sight, as what lies outside the picture.
EXAME examina(const ANDAR& andar, const FIGURA& f, double correl, ENCOBREM encobrem, BANCADA& b);

}  // namespace refine
