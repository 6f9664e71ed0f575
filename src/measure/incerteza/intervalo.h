#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "measure/distribuicao.h"
#include "measure/escala.h"
#include "measure/peneira.h"

namespace measure {

// 95 % intervals of what is said of a distribution, for the sizes that grains have where the
// photographs were taken. They know of the chance by which these grains and these photographs came
// to be measured and of the standard error of each size; of nothing that would make all of them
// wrong alike, such as a wrong scale or grains that are never found.

struct INTERVALOS {
  // Ends of each number, low and high, empty where nothing can be said; counts are as in the
  // distribution itself.
  DISTRIBUICAO de, ate;
  std::vector<PENEIRA> peneirasDe, peneirasAte;
  std::size_t fotos = 0;  // with grains. With one, nothing is known of how places differ
  double entreFotos = 0;  // as in measure/incerteza/reamostra.h
};

struct MODO_DE_SORTEAR {
  std::size_t replicas = 0;  // 0: what `replicasUsuais` says
  std::uint32_t semente = 1;
};

// 1000 replicates up to 10,000 grains, above that 10,000,000 divided by the grains, at least 200.
std::size_t replicasUsuais(std::size_t graos);

// `v` are the grains of all photographs; `aberturas` as in measure/peneira.h. Fewer than two grains
// have no intervals.
INTERVALOS intervalos(const std::vector<MEDIDA>& v, UNIDADE unidade,
                      const std::vector<double>& aberturas = {}, const MODO_DE_SORTEAR& modo = {});

}  // namespace measure
