#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace linha {

// How many letters must be put in, taken away, changed or swapped with their neighbour to make one
// word of the other (Damerau's distance, restricted).
std::size_t distancia(const std::string& a, const std::string& b);

// Those of the words that are nearest to `palavra`, if near enough to have been meant: a letter in
// three may be wrong, and one always.
std::vector<std::string> parecidas(const std::string& palavra,
                                   const std::vector<std::string>& todas);

}  // namespace linha
