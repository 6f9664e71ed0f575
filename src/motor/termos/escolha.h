#pragma once

#include <vector>

#include "motor/termos/escadas.h"

namespace motor {

// Staircases whose planes save the sides together more terms than they cost to make, short periods
// first. The best is taken first, then the best for what it leaves, and so on.
std::vector<ESCADA> escolheEscadas(const std::vector<LADO>& lados);

}  // namespace motor
