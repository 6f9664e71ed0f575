#pragma once

#include <string>
#include <vector>

#include "refine/apura.h"

// Fitted grains in a file, for programs of our own: a line each, every number read back as it was.

namespace apura {

// pim::erro when it can't be written whole.
void impApurados(const std::vector<refine::APURADO>& v, const std::string& nome);

// pim::erro when it can't be read or is no such file.
std::vector<refine::APURADO> leApurados(const std::string& nome);

}  // namespace apura
