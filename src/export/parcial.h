#pragma once

#include <functional>
#include <string>

#include "pim/arquivo.h"

namespace exporta {

// A result that is written aside, as NAME.parcial, and takes its name when it is complete: whoever
// sees NAME sees all of it, and what stood there before stays until then. When it goes before
// it is complete, so does the file; what a process that was killed leaves, the next one overwrites.
// A device or a pipe is written straight, and a link stays a link.
struct PARCIAL {
  std::string nome;    // the final name, links followed
  std::string aparte;  // the name that `arquivo` has until then
  pim::ARQUIVO arquivo;
  std::string pendente;  // text not yet handed over
};

// pim::erro when NAME.parcial can't be created.
PARCIAL abreParcial(const std::string& nome);

// Hands over what is pending when it is worth a write. Call it after each row.
void adianta(PARCIAL& p);

// Writes the rest, closes and renames; pim::erro when any write, the close or the rename failed.
void conclui(PARCIAL p);

// Writes a file aside for a writer that takes a name: `escreve` is given one beside `nome` with the
// same suffix, and the file that it leaves there takes the name `nome`.
void gravaAparte(const std::string& nome,
                 const std::function<void(const std::string& aparte)>& escreve);

}  // namespace exporta
