#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

#include "measure/escala.h"
#include "measure/grao.h"

namespace measure {

// Size distributions. Sums run in the order of the sizes, so that the order of the grains never
// changes a digit.

// Which diameter is the size of a grain.
enum class GRANDEZA { equivalente, menor, maior };

// How much a grain counts, whichever diameter is its size: 1, its area, or the volume of the sphere
// that shows this area, pi/6 equivalente^3. These are the quantities of type 0, 2 and 3 of ISO
// 9276-1, with the area-equivalent diameter that ISO 13322-1 uses for pictures. Only the ratios of
// the weights matter.
enum class PESO { numero, area, volume };

// One grain of a distribution: its size and its weight, above zero; the standard error of the size,
// 0 where none is known, and the photograph that it is from, for intervals.
struct MEDIDA {
  double tamanho = 0;
  double peso = 1;
  double erro = 0;
  std::size_t foto = 0;
};

// Size and weight of a grain, in the unit of the scale; the weight as many times as it counts.
MEDIDA medida(const GRAO& g, const ESCALA& e, GRANDEZA grandeza, PESO peso);

// The cumulative curve: sizes in ascending order (equal ones by weight) and the share of the total
// weight below each, its own weight counted by half: (w[1] + ... + w[i-1] + w[i] / 2) / W. For
// equal weights that is Hazen's plotting position (i - 1/2) / n.
struct CURVA {
  std::vector<double> tamanho;
  std::vector<double> peso;
  std::vector<double> acumulada;  // 0 to 1, ascending
};

CURVA curva(std::vector<MEDIDA> v);

// The size that p percent of the weight lies below, linear in size between the points of the curve;
// before the first and after the last point, the smallest and the largest grain. For equal weights
// it is definition 5 of Hyndman and Fan (1996), "Sample quantiles in statistical packages". Empty
// for an empty curve.
std::optional<double> percentil(const CURVA& c, double p);

// The percentiles that a distribution holds.
inline constexpr std::array<int, 11> percentis = {5, 10, 16, 25, 30, 50, 60, 75, 84, 90, 95};

// What is said of a distribution. Empty where it can't be said: all of it without grains; skewness
// and kurtosis also where the percentiles they divide by coincide, as for a single grain.
struct DISTRIBUICAO {
  std::size_t graos = 0;
  std::array<std::optional<double>, percentis.size()> d;  // sizes, in the order of `percentis`
  std::optional<double> media;                            // sum of w x over sum of w
  std::optional<double> desvio;    // root of sum of w (x - media)^2 over sum of w; 0 for one grain
  std::optional<double> mediaPhi;  // graphic mean, see measure/folkward.h
  std::optional<double> selecao;   // inclusive graphic standard deviation ("sorting")
  std::optional<double> assimetria;    // inclusive graphic skewness
  std::optional<double> curtose;       // graphic kurtosis
  std::optional<double> uniformidade;  // Cu = D60 / D10
  std::optional<double> curvatura;     // Cc = D30^2 / (D10 D60)
};

// The sizes of `c` are in `unidade`, which only the phi values depend on.
DISTRIBUICAO distribui(const CURVA& c, UNIDADE unidade);

// The percentile p of `percentis`.
std::optional<double> valorD(const DISTRIBUICAO& d, int p);

}  // namespace measure
