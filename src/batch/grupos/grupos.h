#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "batch/obra/alvos.h"
#include "batch/pedido/opcoes.h"

namespace batch {

// Photographs in groups that the report compares.

// Whether the value of --grupos asks for a group of each folder.
bool ehPorPastas(const std::string& pedido);

// The folder that a photograph lies in is its group.
void agrupaPorPastas(std::vector<ALVO>& alvos);

// Gives the photographs what a table says of them: "foto,grupo,escala,polaridade" (or
// "photograph,group,scale,polarity"), of which the last two may be missing. A photograph is named
// by its file, with or without suffix and folders before it. A scale as that of --escala, or
// nothing; polarity "escuros" or "claros" ("dark", "bright"), or nothing. Lengths become those of
// one unit, that of `padrao` if it has one, else of the first scale of the table; then `padrao` is
// that unit too. pim::erro "Erro: Grupos, linha N: REASON" for a row that fits no photograph or
// several, or one that another row has named; and when some photographs have a scale and others
// none.
void agrupaPorTabela(std::vector<ALVO>& alvos, std::string_view csv, measure::ESCALA& padrao);

}  // namespace batch
