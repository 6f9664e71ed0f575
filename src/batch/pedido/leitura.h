#pragma once

#include <string>

#include "export/idioma.h"

namespace batch {

// The whole file, if it is one of at most 64 MiB; else "" and `porque`.
std::string leTudo(const std::string& nome, std::string& porque, exporta::IDIOMA idioma);

}  // namespace batch
