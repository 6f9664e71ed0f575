#pragma once

#include <optional>
#include <vector>

#include "refine/medida.h"

namespace refine {

// A grain as measured, and the smaller shape that it is if part of that is its cast shadow.
struct MEDIDO {
  std::optional<MEDIDA> inteiro;
  std::optional<MEDIDA> semSombra;
};

// Takes the smaller shapes where the picture has cast shadows: light comes from one side, so the
// middles of most smaller shapes must have moved the same way. Those that moved otherwise stay.
void tiraSombras(std::vector<MEDIDO>& v);

}  // namespace refine
