#pragma once

#include <string>

namespace pim {

// The full name of a file that comes with the program, beside the executable or in the library
// folder it was installed with. No other folder is searched, least of all the one with the
// photographs. Where the system does not tell which program this is, it is taken to be installed in
// its place.
std::string arquivoDoPrograma(const std::string& nome);

// The table `simbolo` of the module `nome`, which is opened and stays open to the end of the
// process: what it makes may outlive any call. pim::erro `mensagem` and why when it
// can't be.
const void* abreModulo(const std::string& nome, const char* simbolo, const std::string& mensagem);

}  // namespace pim
