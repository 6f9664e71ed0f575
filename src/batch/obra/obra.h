#pragma once

#include <filesystem>
#include <string>

#include "export/idioma.h"

namespace batch {

// The building site of a run: a hidden folder inside the output folder. A photograph's folder is
// made there and takes its name in one step when it is complete.

struct OBRA {
  std::filesystem::path saida;  // absolute
  std::filesystem::path pasta;  // the building site
  int trava = -1;               // keeps other runs out of `saida` while it and its processes live
  bool criouSaida = false;
};

// Creates the output folder if need be, waits for leftover processes of a killed run, and clears
// what that run left. Returns why it can't be, or an empty text.
std::string abreObra(OBRA& o, const std::string& saida, exporta::IDIOMA idioma);

// Removes the building site, and the output folder too if the run made it and left nothing there.
void fechaObra(const OBRA& o);

// Where the results of `nome` are made, and where they stand when complete.
std::filesystem::path emObra(const OBRA& o, const std::string& nome);
std::filesystem::path pronta(const OBRA& o, const std::string& nome);

// Whether results may take this name: nothing stands there, or an earlier folder of results.
bool livre(const OBRA& o, const std::string& nome);

// Gives the folder made for `nome` its name. What a user has put into the folder that stood there
// stays; results in it go. False when it can't be done.
bool publica(const OBRA& o, const std::string& nome);

// Removes what was made for `nome`.
void abandona(const OBRA& o, const std::string& nome);

}  // namespace batch
