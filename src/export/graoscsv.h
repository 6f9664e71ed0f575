#pragma once

#include <string>

#include "export/idioma.h"
#include "export/parcial.h"
#include "measure/resumo.h"

namespace exporta {

// Tables of grains, one row a grain: RFC 4180 with a header, UTF-8 without a byte order mark, lines
// ended by a line feed. Columns as in export/colunas.h.

// Writes the grains of one photograph. pim::erro when the file can't be written whole.
void impGraosCsv(const measure::FOTOGRAFIA& foto, const std::string& nome,
                 IDIOMA idioma = IDIOMA::pt);

// A table of the grains of many photographs, with the photograph's name as first column, written as
// they come: open, append each, `conclui`.
struct TABELA_GRAOS {
  PARCIAL saida;
  measure::UNIDADE unidade = measure::UNIDADE::px;
  IDIOMA idioma = IDIOMA::pt;
  measure::METODO metodo = measure::METODO::classico;
};

// `unidade` and `metodo` are those of all photographs to come. pim::erro when the file can't be
// created.
TABELA_GRAOS abreGraosCsv(const std::string& nome, measure::UNIDADE unidade,
                          IDIOMA idioma = IDIOMA::pt,
                          measure::METODO metodo = measure::METODO::classico);

// pim::erro when the photograph has another unit or was measured otherwise.
void acrescenta(TABELA_GRAOS& t, const measure::FOTOGRAFIA& foto);

// Closes the table and gives it its name; pim::erro when it could not be written whole.
void conclui(TABELA_GRAOS t);

}  // namespace exporta
