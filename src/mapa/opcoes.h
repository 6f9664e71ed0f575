#pragma once

#include <string>
#include <vector>

#include "export/idioma.h"
#include "textura/acha.h"

namespace mapa {

// What the command line of vorplex-mapa asks for.
struct OPCOES {
  std::string foto;
  std::string saida;
  std::string rede = "fotos";  // "fotos", "cenas" or the name of a file
  textura::MODO modo;
  bool indices = false;  // numbers beside the outlines of a picture
  bool cartao = false;
  bool quieto = false;
  bool ajuda = false;
  bool versao = false;
  exporta::IDIOMA idioma = exporta::IDIOMA::pt;
};

// Options may stand anywhere before "--"; the two words that are none are photograph and output. As
// many threads as processors when none are asked for. Returns what is wrong, in the language asked
// for, or an empty text. No file is looked at.
std::string leOpcoes(const std::vector<std::string>& args, OPCOES& o);

}  // namespace mapa
