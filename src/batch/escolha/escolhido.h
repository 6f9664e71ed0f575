#pragma once

#include <string>
#include <vector>

#include "batch/obra/alvos.h"
#include "batch/obra/obra.h"
#include "batch/pedido/opcoes.h"

namespace batch {

// How a run without a kernel.cfg comes by one.
struct ESCOLHIDO {
  std::string erro;                 // why it has none, or empty
  std::string dito;                 // what was chosen, or that an earlier choice stands
  std::vector<std::string> avisos;  // what makes the choice doubtful
};

// Leaves a kernel.cfg in the output folder. One that stands there already is kept, edited or not,
// so that more photographs don't change what is done; unless all is to be done again: then it is
// chosen anew, and an earlier one that differs stays as kernel-anterior.cfg. Looks at the
// photographs in a process of its own. False when interrupted.
bool escolheKernel(const OBRA& obra, const OPCOES_LOTE& o, const std::vector<ALVO>& alvos,
                   ESCOLHIDO& e);

// Whether a word of the command line that may be a kernel.cfg is rather a photograph or a folder:
// by its content where it has one that tells, else by its suffix.
bool ehFotografiaOuPasta(const std::string& palavra);

}  // namespace batch
