#pragma once

#include <string>

#include "linha/programa.h"

namespace manual {

// Text as roff takes it: what it would read as its own is escaped.
std::string roff(const std::string& texto);

// A manual page from its model, in which a line of its own asks for each part that the table of the
// program gives: @SYNOPSIS@, @COMMANDS@, @OPERANDS@, @OPTIONS@. @SUMMARY@, @STATUS@ and @VERSION@
// may stand anywhere.
std::string pagina(const std::string& modelo, const linha::PROGRAMA& p, exporta::IDIOMA i,
                   const std::string& versao);

}  // namespace manual
