#pragma once

#include <vector>

#include "motor/termos/escadas.h"
#include "pim/pausa.h"

namespace motor {

// Staircases whose planes save the sides together more terms than they cost to make, short periods
// first. The best is taken first, then the best for what it leaves, and so on. `pausa` is called at
// each try.
std::vector<ESCADA> escolheEscadas(const std::vector<LADO>& lados, const pim::PAUSA& pausa = {});

}  // namespace motor
