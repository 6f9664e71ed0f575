#pragma once

#include <string>
#include <vector>

namespace pim {

// Fills `nomes` (its earlier content is dropped) with the names in the current directory that
// match `padrao`, in which `*` stands for any run of characters, none included, and every other
// character for itself. Sorted by byte value. Regular files only (links to them count); with
// `tambemPastas` directories too. pim::erro when the current directory can't be read.
void vsWildCard(const std::string& padrao, std::vector<std::string>& nomes, bool tambemPastas);

// Whether the whole of `nome` matches `padrao`, in time proportional to the product of the lengths
// at worst.
bool casa(const std::string& padrao, const std::string& nome);

}  // namespace pim
