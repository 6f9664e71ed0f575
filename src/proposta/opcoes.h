#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "batch/escolha/amostra.h"
#include "export/idioma.h"
#include "sugere/sugere.h"

namespace proposta {

// What the command line of vorplex-sugere asks for.
struct OPCOES {
  std::vector<std::string> entradas;  // photographs and folders, as given
  std::string figura;                 // picture to be drawn; empty: none
  std::size_t amostra = batch::amostraUsual;
  refine::MODO_DE_APURAR modo;
  bool inverte = false;
  bool recursivo = false;
  int fios = 1;
  bool quieto = false;
  bool ajuda = false;
  bool versao = false;
  exporta::IDIOMA idioma = exporta::IDIOMA::pt;
};

// Options may stand anywhere before "--"; other words are photographs and folders. As many threads
// as processors when none are asked for. Returns what is wrong, in the language asked for, or an
// empty text. No file is looked at.
std::string leOpcoes(const std::vector<std::string>& args, OPCOES& o);

}  // namespace proposta
