#pragma once

#include "export/idioma.h"

// What vorplex-mapa says, in both languages. Portuguese goes without accents, as in the messages of
// the sub-programs. %s is filled in by cv::format.

namespace mapa::falas {

inline constexpr exporta::FRASE demais = {"Graos demais para rotulos de 16 bits: %s",
                                          "Too many grains for labels of 16 bits: %s"};
inline constexpr exporta::FRASE resultado = {"%s graos em %s", "%s grains in %s"};

}  // namespace mapa::falas
