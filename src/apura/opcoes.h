#pragma once

#include <string>
#include <vector>

#include "export/idioma.h"
#include "refine/apura.h"

namespace apura {

// What the command line of vorplex-apura asks for.
struct OPCOES {
  std::string foto;
  std::string lista;
  std::string saida;
  refine::MODO_DE_APURAR modo;
  bool inverte = false;  // bright grains on dark ground
  bool indices = false;  // numbers beside the outlines of a picture
  bool quieto = false;
  bool ajuda = false;
  bool versao = false;
  exporta::IDIOMA idioma = exporta::IDIOMA::pt;
};

// Options may stand anywhere before "--"; the three words that are none are photograph, list and
// output. As many threads as processors when none are asked for. Returns what is wrong, in the
// language asked for, or an empty text. No file is looked at.
std::string leOpcoes(const std::vector<std::string>& args, OPCOES& o);

}  // namespace apura
