#pragma once

#include <optional>
#include <vector>

#include "sugere/indicios.h"
#include "sugere/vistas.h"

namespace sugere {

// A view and what looks like grains in it, in both polarities.
struct OLHADA {
  VISTA vista;
  std::vector<INDICIO> escuros;  // darker than their ground
  std::vector<INDICIO> claros;
};

struct MODO_DE_OLHAR {
  std::optional<bool> inverte;  // bright grains on dark ground, when that is known
  double minCorr = 0.02;        // of the search
  refine::MODO_DE_APURAR modo;
  int fios = 1;  // threads; the result doesn't depend on it
};

// Looks at every view for dark and for bright grains, or only those that are known to be there.
// Where a glance at half the detail decides for one polarity of a photograph, the other is left at
// what the glance saw.
void olha(std::vector<OLHADA>& v, const MODO_DE_OLHAR& modo);

}  // namespace sugere
