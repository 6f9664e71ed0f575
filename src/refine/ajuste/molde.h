#pragma once

#include <optional>
#include <span>
#include <vector>

#include "refine/ajuste/perfil.h"

namespace refine {

// What the profiles along an outline have in common: a step between two straight slopes of grey,
// under a bell. A grain that gets paler or darker toward its rim moves the steepest place of a
// blurred edge; here the shading is told apart from the edge.
struct MOLDE {
  double onde = 0;    // of the edge, pixels outward from the contour
  double sigma = 1;   // deviation of the blur, pixels
  double dentro = 0;  // grey just inside and just outside
  double fora = 0;
  double decliveDentro = 0;  // grey a pixel outward
  double decliveFora = 0;
  double erro = 0;  // standard error of `onde`

  double degrau() const { return fora - dentro; }
  double em(double t) const;  // grey at a distance outward from the contour
  double decliveEm(double t) const;
};

// Length over which noise is alike after the smoothing of the picture, pixels: the integral of its
// correlation, 2 sqrt(pi) times the deviation.
inline constexpr double ruidoIgual = 2.84;

// Which part of the profiles is compared, pixels inward and outward from the contour.
struct JANELA {
  double dentro;
  double fora;
};

// The mould that fits the mean of the profiles best, each weighing by `pesos`, sought from `inicio`
// (one without a step: from what is seen); nothing when there is no rise from dark inside to bright
// outside. Pieces of outline nearer than the smoothing see the same noise.
std::optional<MOLDE> molda(const PERFIS& perfis, std::span<const double> pesos, JANELA janela,
                           const MOLDE& inicio);

// Where the edge of every profile lies by the mould, pixels outward from the contour: the shift
// that makes both agree best, light and contrast being each profile's own (least squares matching,
// Gruen 1985). Begins at the contour, where `bordas` have their peak far from it there.
void deslocaPorMolde(const PERFIS& perfis, const MOLDE& molde, std::span<const BORDA> bordas,
                     std::vector<double>& deslocamentos);

}  // namespace refine
