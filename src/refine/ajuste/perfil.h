#pragma once

#include <cstddef>
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

// What taking the slope over two pixels adds to `largura2`.
inline constexpr double doDeclive = 1.0 / 3;

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

// Profiles side by side: point k of sample i, from -meio inside to meio outside, lies k * passo
// pixels outward from the contour.
struct PERFIS {
  int meio = 0;
  double passo = 0.5;
  std::size_t salto = 0;
  std::vector<float> greys;

  float em(int k, std::size_t i) const {
    return greys[static_cast<std::size_t>(k + meio) * salto + i];
  }
};

// Reads the profile of every sample; those out of sight are told in `bordas`, which is replaced.
void lePerfis(const ANDAR& andar, std::span<const AMOSTRA> amostras, int meio, double passo,
              PERFIS& p, std::vector<BORDA>& bordas);

// How many points to either side the edges of `como` need.
int passosDaBusca(const ALCANCE& como);

// The edges in profiles that were read with the step of `como`. With `junta` the profiles become
// those averaged.
void achaBordas(const ANDAR& andar, std::span<const AMOSTRA> amostras, const ALCANCE& como,
                PERFIS& p, std::vector<BORDA>& bordas);

// The edge at every sample of a contour, places and lengths in pixels of the reduction. The edge is
// the strongest rise of grey outward, the farther from the contour the less it counts
// (exp(-s^2 / 2 reach^2)); its place is refined by a parabola. Rises below half the noise are none.
void procuraBordas(const ANDAR& andar, std::span<const AMOSTRA> amostras, ALCANCE como,
                   std::vector<BORDA>& bordas);

}  // namespace refine
