#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "measure/distribuicao.h"
#include "measure/incerteza/sorteio.h"

namespace measure {

// Grains drawn again from those that were measured, photographs first and then the grains in each
// (the bootstrap of Efron 1979 for clusters: Davison and Hinkley 1997, "Bootstrap methods and their
// application", 3.8). Where each grain stands is worked out once; a replicate is a number of times
// for each grain, and its curve one pass over them.
struct URNA {
  // The grains by size. One whose size has a standard error e stands there twice, as size - e and
  // size + e, and every time that it is drawn is one of the two: mean and variance are those of the
  // error. Without errors each stands there once.
  std::vector<double> tamanho;
  std::vector<double> peso;
  std::vector<std::size_t> foto;  // whose grain it is, from 0
  // By photograph, then by size: where the one of each grain stands above, or the two.
  std::vector<std::size_t> lugar;
  std::vector<std::size_t> comeco;  // of each photograph in `lugar`, and the end of the last
  std::size_t copias = 1;           // 1, or 2
  double entreFotos = 0;            // see below
};

// Photographs without grains are no part of it. Nothing depends on the order of `v`.
URNA urna(std::vector<MEDIDA> v);

// Which part of the differences between photographs their grains alone do not explain, 0 to 1:
// 1 - 1/F, or 0 below F = 1. F is the variance of the photographs' totals of w (below D_p - p) over
// what independent grains would give it, both summed over `percentis`. With one photograph 0.
double entreFotos(const std::vector<MEDIDA>& v);

// Draws once. As many grains from each photograph as it has; and photographs, as many as there are,
// one drawn c times counting 1 + sqrt(entreFotos) (c - 1) times: photographs that differ by chance
// alone are only divisions of one sample.
void reamostra(const URNA& u, SORTEIO& sorteio, CURVA& c);

}  // namespace measure
