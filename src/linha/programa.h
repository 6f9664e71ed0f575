#pragma once

#include <span>
#include <string>
#include <vector>

#include "export/idioma.h"

// What a program takes on its command line, as one table. The options are read by it, and the help,
// the manual page and the completion of the shells are made from it: a new option is a row here and
// a case where the program stores it. Portuguese texts have their accents; what goes to a terminal
// loses them (`semAcentos`).

namespace linha {

using exporta::FRASE;

// What the shells complete a word with.
enum class TIPO { texto, pasta, kernel, lista, fotos, saida };

struct OPCAO {
  int letra = 0;                         // the short letter, or from 256 on where there is none
  const char* pt = "";                   // long names; both are taken whatever the language
  const char* en = "";                   // may be the same
  FRASE ajuda = {};                      // begins with a small letter, without a full stop
  FRASE valor = {};                      // the name of its value; null where it takes none
  std::span<const FRASE> palavras = {};  // all its values, where they are words
  TIPO tipo = TIPO::texto;               // of the value
};

struct GRUPO {
  FRASE titulo = {};
  std::span<const OPCAO> opcoes = {};
};

// A word that is no option. "..." at the end of its name: there may be several; "[" at its
// beginning: it may be missing.
struct OPERANDO {
  FRASE nome = {};
  FRASE ajuda = {};
  TIPO tipo = TIPO::texto;
};

// One of the programs in a program, named by its first word.
struct COMANDO {
  const char* nome = "";
  FRASE resumo = {};
  std::span<const OPERANDO> operandos = {};
};

struct PROGRAMA {
  const char* nome = "";
  FRASE resumo = {};                         // what it does, in a line
  std::span<const COMANDO> comandos = {};    // either these
  std::span<const OPERANDO> operandos = {};  // or these
  std::span<const GRUPO> grupos = {};
  FRASE estados = {};  // exit statuses: "0 all well, 1 ..."
};

inline bool levaValor(const OPCAO& o) {
  return o.valor.pt != nullptr;
}

inline bool temLetra(const OPCAO& o) {
  return o.letra < 256;
}

// "--saida", "--output".
inline std::string nomeLongo(const OPCAO& o, exporta::IDIOMA i) {
  return std::string("--") + (i == exporta::IDIOMA::en ? o.en : o.pt);
}

// All options of a program, in order.
std::vector<OPCAO> opcoesDe(const PROGRAMA& p);

// The place in `palavras` of a word in either language; below 0 when it is none of them.
int lugarDaPalavra(const std::string& texto, std::span<const FRASE> palavras);

// Stores a value of an enumeration in the order of `palavras`; false when the word is none of them.
template <class ENUM>
bool lePalavra(const std::string& texto, std::span<const FRASE> palavras, ENUM& e) {
  const int i = lugarDaPalavra(texto, palavras);
  if (i >= 0) e = static_cast<ENUM>(i);
  return i >= 0;
}

}  // namespace linha
