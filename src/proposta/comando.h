#pragma once

#include <string>
#include <vector>

namespace proposta {

// Runs vorplex-sugere with the words after its name; returns the exit status: 0 all well, 1 a
// failure, 2 wrong use. `versao` is what --versao shows.
int comando(const std::vector<std::string>& args, const std::string& versao);

}  // namespace proposta
