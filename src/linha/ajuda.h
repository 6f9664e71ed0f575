#pragma once

#include <cstddef>
#include <string>

#include "linha/programa.h"

namespace linha {

// What --help shows: how the program is called, what it does, its operands, its options group by
// group, its exit statuses. Lines of at most 80 letters.
std::string ajuda(const PROGRAMA& p, exporta::IDIOMA i);

// "-o, --saida PASTA" in its language.
std::string rotulo(const OPCAO& o, exporta::IDIOMA i);

// "vorplex-lote [opcoes] kernel.cfg FOTO|PASTA...", with accents.
std::string uso(const PROGRAMA& p, exporta::IDIOMA i);

// The text with its Portuguese accents taken away, as messages go.
std::string semAcentos(const std::string& texto);

}  // namespace linha
