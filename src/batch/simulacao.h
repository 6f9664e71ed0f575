#pragma once

#include <string>
#include <vector>

#include "batch/fotografia.h"

namespace batch {

// What a run would do with a photograph.
enum class SINA { pronta, medir, escolher, procurar, ilegivel, semLugar };

// Reads the photograph and what stands of its results, and changes nothing.
SINA sina(const RECEITA& r, const ALVO& alvo);

// The same in words, with the name of the photograph.
std::string dizSina(const RECEITA& r, const ALVO& alvo, SINA s);

}  // namespace batch
