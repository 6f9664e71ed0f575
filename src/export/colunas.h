#pragma once

#include <string>
#include <vector>

#include "export/idioma.h"
#include "export/valor.h"
#include "measure/escala.h"
#include "measure/grao.h"

namespace exporta {

// The record of a grain as a row of named values: index, letter and name of the shape, row and
// column, sizes, angle, correlation, area, equivalent diameter, perimeter, lesser and greater
// diameter, aspect, whether it touches the border. Lengths and areas are in px and px2; with a
// scale, columns with the same lengths and areas in its unit follow. Names tell the unit: area_px2,
// area_mm2. A circle and a square show their one size as d1 and d2. Of a fitted grain the support,
// the contrast and the standard errors of row, column, sizes and angle stand behind all of that,
// then once more those that are lengths.

std::vector<std::string> nomesDoGrao(measure::METODO metodo, measure::UNIDADE unidade,
                                     IDIOMA idioma);

// Into `valores`, which is emptied first; as many as there are names, in their order.
void valoresDoGrao(const measure::GRAO& g, const measure::ESCALA& e, IDIOMA idioma,
                   std::vector<VALOR>& valores);

}  // namespace exporta
