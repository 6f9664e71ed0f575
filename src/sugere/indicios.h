#pragma once

#include <vector>

#include "refine/apura.h"
#include "sugere/vistas.h"

namespace sugere {

// What looks like a grain in a view.
struct INDICIO {
  refine::FIGURA figura;  // in pixels of the view
  double diametro = 0;    // of equal area, pixels of the photograph
  double correl = 0;
  double apoio = 0;
  double contraste = 0;
};

struct OLHAR {
  bool inverte = false;   // bright grains on dark ground
  double minCorr = 0.02;  // of the search
  refine::MODO_DE_APURAR modo;
};

// Searches the view for shapes of all families from 8 pixels to a third of it, and fits and judges
// what it finds. Fits may go somewhat below.
std::vector<INDICIO> indicios(const VISTA& v, const OLHAR& olhar);

// How much speaks for grains: the sum of size by support by contrast. What is no grain has little
// of one of them.
double evidencia(const std::vector<INDICIO>& v);

}  // namespace sugere
