#pragma once

#include <span>
#include <vector>

#include "refine/ajuste/campo.h"
#include "refine/contorno/amostras.h"

namespace refine {

// What the picture shows along the normal of one point of a contour.
struct BORDA {
  bool visivel = false;  // the point lies in the picture
  bool ha = false;       // there is an edge, from dark inside to bright outside
  float desvio = 0;      // where, in pixels outward from the contour
  float rampa = 0;       // its slope, grey a pixel
  float largura2 = 1;    // variance of the slope's peak, square pixels: how blurred the edge is
  float dentro = 0;      // grey some way in and some way out
  float fora = 0;
};

// How the profiles are read.
struct ALCANCE {
  double alcance;  // pixels to either side
  double passo;    // 1 or 1/2 pixel
  int nitidez =
      0;  // steps: what a slope exceeds those so far to either side by counts, so that the
          // sharp edge of a grain is taken before the soft one of its shadow; 0: the slope
  double primeira = 0;  // the innermost edge of at least this slope is taken, not the strongest
  int junta = 0;        // profiles of so many neighbours to either side are averaged, against noise
};

// The edge at every sample of a contour, places and lengths in pixels of the reduction. The edge is
// the strongest rise of grey outward, the farther from the contour the less it counts
// (exp(-s^2 / 2 reach^2)); its place is refined by a parabola. Rises below half the noise are none.
void procuraBordas(const ANDAR& andar, std::span<const AMOSTRA> amostras, ALCANCE como,
                   std::vector<BORDA>& bordas);

}  // namespace refine
