#pragma once

#include <string>
#include <vector>

namespace batch {

// Runs vorplex-lote with the words after its name; returns the exit status: 0 all well, 1 a
// photograph or the tables over all failed, 2 wrong use (options, kernel.cfg, no photograph, an
// output folder in which nothing can be made), 130 interrupted. `versao` is what --versao shows.
int lote(const std::vector<std::string>& args, const std::string& versao);

}  // namespace batch
