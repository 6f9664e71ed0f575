#pragma once

#include <string>

#include "export/idioma.h"
#include "measure/resumo.h"

namespace exporta {

// Writes the grains as a GeoJSON FeatureCollection (RFC 7946) of polygons, one feature a line, with
// the values of export/colunas.h as properties and the index as id. Circles and ellipses are
// polygons of points of the curve, whose chords lie within 1/50 px of it.
//
// x is the column and y the row, in the unit of the scale, or in px without one; pixel centres have
// whole coordinates in px. y therefore points down on the photograph, while a map shows it pointing
// up, as if in a mirror. Rings are closed and run counter-clockwise as the map shows them, which is
// what RFC 7946 asks for; on the photograph they run clockwise. Coordinates have 10 digits.
//
// The coordinates are not geographic, though readers will call them so (WGS 84): the format knows
// no other, and leaves local coordinates to those who exchange them.
//
// pim::erro when the file can't be written whole.
void impGeojson(const measure::FOTOGRAFIA& foto, const std::string& nome,
                IDIOMA idioma = IDIOMA::pt);

}  // namespace exporta
