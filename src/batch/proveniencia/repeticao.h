#pragma once

#include <string>

#include "batch/pedido/opcoes.h"
#include "batch/proveniencia/proveniencia.h"

namespace batch {

// The options of the run that `p` tells of, to do it again: all from the beginning, with the
// kernel.cfg of that run. From `pedidas`, the command line that asks for it, come the output folder
// ("repeticao" where none was named), the photographs where some were named, how many at a time,
// and whether to be quiet. `erro` says why the recorded arguments can't be understood, or stays
// empty.
OPCOES_LOTE opcoesDaRepeticao(const PROVENIENCIA& p, const OPCOES_LOTE& pedidas, std::string& erro);

}  // namespace batch
