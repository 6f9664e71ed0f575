#pragma once

#include <string>

namespace measure {

// How large a pixel is. Pixels are square.

enum class UNIDADE { px, um, mm, cm, m, in };

struct ESCALA {
  double lado = 1;                // side of a pixel, in `unidade`
  UNIDADE unidade = UNIDADE::px;  // px: no scale is known, and lado is 1
};

bool calibrada(const ESCALA& e);

// "px", "um", "mm", "cm", "m" or "in": plain ASCII, for column names.
const char* nomeDaUnidade(UNIDADE u);

// How many millimetres a unit is; 1 for px, so that sizes in px are taken relative to 1 px.
double milimetros(UNIDADE u);

// Pixels to the unit of the scale, and square pixels to its square. Without a scale nothing
// changes.
double comprimento(double px, const ESCALA& e);
double area(double px2, const ESCALA& e);

// Reads the side of a pixel with its unit: "0.05mm", "12.5 um", "1e-3 in", or how many pixels there
// are to a unit: "20px/mm". The decimals follow a point or comma, blanks may stand around number
// and unit, units are um (or µm), mm, cm, m and in, in lower case. The side must lie between 1e-9
// and 1e9 of its unit. Returns the reason why the text was refused, in Portuguese, and leaves `e`
// as it was; an empty text when all is well.
std::string paraEscala(const std::string& texto, ESCALA& e);

// The scale that `texto` gives; pim::erro "Erro: Escala invalida TEXT: REASON" when it is refused.
ESCALA leEscala(const std::string& texto);

}  // namespace measure
