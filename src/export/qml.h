#pragma once

#include <string>

#include "export/idioma.h"

namespace exporta {

// Writes a style of QGIS (3.x) for what impGeojson writes: each shape in a colour of its own, as
// outlines over the photograph. QGIS takes it by itself when it has the name of the GeoJSON file
// with the suffix .qml. `idioma` is that of the GeoJSON. pim::erro when it can't be written whole.
void impEstiloQgis(const std::string& nome, IDIOMA idioma = IDIOMA::pt);

}  // namespace exporta
