#pragma once

#include <cstdio>
#include <string>
#include <vector>

namespace linha {

// The names that a text holds, one a line; where it holds a null character, as by find -print0, one
// before each of those, and line breaks belong to names. Empty ones are left out.
std::vector<std::string> separaNomes(const std::string& texto);

// The words with "-" replaced by the names that the file holds, which is read once.
std::vector<std::string> comNomesDe(std::FILE* f, const std::vector<std::string>& palavras);

}  // namespace linha
