#pragma once

#include <string>
#include <vector>

#include "batch/alvos.h"
#include "batch/obra.h"
#include "batch/opcoes.h"

// What stands over all photographs.

// Writes graos.csv, resumo.csv and relatorio.html of these photographs, whose results are complete,
// into the output folder; each is written in the building site and then takes its name. `comando`
// is how the run was called. pim::erro when one can't be written whole.
void impConjunto(const OBRA& obra, const OPCOES_LOTE& o, const std::vector<ALVO>& prontas,
                 const std::string& comando);
