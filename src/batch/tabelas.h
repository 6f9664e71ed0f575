#pragma once

#include <string>
#include <vector>

#include "batch/avisos/sinais.h"
#include "batch/obra/alvos.h"
#include "batch/obra/obra.h"
#include "batch/pedido/opcoes.h"
#include "batch/proveniencia/proveniencia.h"
#include "corrige/correcoes.h"

namespace batch {

// The summary as JSON on the building site, when it is asked for.
inline constexpr const char* arquivoDoJson = "resumo.json";

// What stands over all photographs.

inline constexpr const char* arquivoDosAvisos = "avisos";

struct CONJUNTO {
  std::vector<ALVO> prontas;                                   // their results are complete
  std::vector<std::string> falharam;                           // names of the others
  std::string comando;                                         // how the run was called
  int processos = 1;                                           // pictures at the same time
  const std::vector<corrige::CORRECOES>* correcoes = nullptr;  // by hand
  ALCANCE alcance;                                             // of the search
  PROVENIENCIA proveniencia;                                   // all but the results
};

// What the page is called: what was searched, as it was named, the first few of the folders and
// photographs.
std::string tituloDaPagina(const OPCOES_LOTE& o);

// Writes graos.csv, resumo.csv, relatorio.html and proveniencia.json of these photographs into the
// output folder; each is written in the building site and then takes its name. A photograph that
// can't be read any more is shown by the picture with its outlines, or by none. pim::erro when a
// file can't be written whole. What makes the numbers doubtful is in the tables and on the page,
// and a line each in `arquivoDosAvisos` of the building site.
void impConjunto(const OBRA& obra, const OPCOES_LOTE& o, const CONJUNTO& c);

}  // namespace batch
