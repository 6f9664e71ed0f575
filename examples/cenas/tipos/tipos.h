#pragma once

#include <span>
#include <string_view>

#include "examples/cenas/tipos/tipo.h"

namespace cenas {

// The kinds to learn from, and those kept apart to judge by: of other character, and never looked
// at in learning.
std::span<const TIPO> treino();
std::span<const TIPO> reservados();

// The kind of this name; null when there is none.
const TIPO* tipo(std::string_view nome);

}  // namespace cenas
