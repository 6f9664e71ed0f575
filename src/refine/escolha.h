#pragma once

#include <cstddef>
#include <vector>

#include "refine/contorno/figura.h"

namespace refine {

// What accepted shapes may share.
struct REGRAS {
  double sobreposicao = 0.3;    // of either area
  double contornoLivre = 0.35;  // of the outline, not inside others
  double menorNota = -3;
  double notaDeTroca = -1;  // those above it are chosen and exchanged before the others fill up
};

// Which of the shapes to keep: from the best score down, each that leaves the ones before it enough
// room. Numbers in the order of the choice.
std::vector<std::size_t> escolhe(const std::vector<FIGURA>& figuras,
                                 const std::vector<double>& notas, const REGRAS& regras);

}  // namespace refine
