#pragma once

#include <string>
#include <vector>

namespace mapa {

// Runs vorplex-mapa with the words after its name; returns the exit status: 0 all well, 1 a
// failure, 2 wrong use. pim::erro when a file can't be read or written. `versao` is what --versao
// shows.
int comando(const std::vector<std::string>& args, const std::string& versao);

}  // namespace mapa
