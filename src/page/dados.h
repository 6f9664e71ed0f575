#pragma once

#include <string>
#include <vector>

#include "page/pagina.h"

namespace page {

// What the scripts of the page read, as JSON that fits into a <script> element.

// Settings: idioma, titulo, comando, escala {lado, unidade}, grandeza, peso, peneiras, limiares
// {apoio, correl: by letter}; for the table to download colunas (its header) and formas (names by
// letter).
std::string ajustesEmJson(const PAGINA& pagina);

// One photograph: nome, rows, cols, miniatura (JPEG in base64) and graos, an array for each grain:
// index, letter, row, column, d1, d2, angle, correlation, area, equivalent diameter, perimeter,
// lesser and greater diameter, aspect, 1 when it touches the border; of a fitted grain also
// support, contrast, standard errors of row, column, d1, d2 and angle; all in px. semFigura when
// its picture is lost. Where there is something to tell also soma, grupo, lado (of a pixel),
// correcoes (as in their file) and candidatos (as graos).
std::string fotoEmJson(const FOTO_DA_PAGINA& foto, const std::string& miniatura);

}  // namespace page
