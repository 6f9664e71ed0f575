#pragma once

#include <array>
#include <string_view>

#include "refine/tracos/companhia.h"
#include "refine/tracos/esboco.h"
#include "refine/tracos/tracos.h"

namespace treino {

// The names of the features, in the order of each stage. They head the tables and stand beside the
// weights.
extern const std::array<std::string_view, refine::quantosTracos> nomesDosTracos;
extern const std::array<std::string_view, refine::quantosEsbocados> nomesDosEsbocados;
extern const std::array<std::string_view, refine::quantosDaCompanhia> nomesDaCompanhia;

}  // namespace treino
