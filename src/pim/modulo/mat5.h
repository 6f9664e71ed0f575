#pragma once

#include <string>

namespace pim {

// Whether a MAT-file of version 5 holds all that it promises: every element ends inside the file,
// compressed ones expand to what they say, and the real two-dimensional numeric arrays have as many
// numbers as their dimensions ask for. Other versions are passed. matio looks at none of this, and
// takes for data whatever its memory happens to hold.
bool mat5Inteiro(const std::string& nome);

}  // namespace pim
