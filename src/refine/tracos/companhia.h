#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "refine/tracos/tracos.h"

namespace refine {

// What is looked at to judge a chosen shape by the others of its picture.
inline constexpr std::size_t quantosDaCompanhia = 30;
using COMPANHIA = std::array<float, quantosDaCompanhia>;

// For each chosen shape, by how much it differs from the middle of all: medians weighted by
// probability times size, distances by the median distance. The fewer the shapes, the less the
// differences count.
std::vector<COMPANHIA> comparaTodos(const std::vector<EXAME>& exames,
                                    const std::vector<double>& notas,
                                    const std::vector<double>& probabilidades);

}  // namespace refine
