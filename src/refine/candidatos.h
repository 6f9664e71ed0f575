#pragma once

#include <optional>
#include <vector>

#include "pim/pausa.h"
#include "refine/ajuste/campo.h"
#include "refine/contorno/figura.h"
#include "refine/tracos/pesos.h"
#include "refine/tracos/tracos.h"

namespace refine {

// A detection to begin with, in pixels of the picture.
struct DETECCAO {
  FIGURA figura;
  float correl = 0;
};

// A fitted shape that may be a grain.
struct CANDIDATO {
  FIGURA figura;     // in pixels of the picture
  float correl = 0;  // of the detection that it comes from
  EXAME exame;
};

struct MODO_DE_AJUSTAR {
  bool elipses = true;     // circles may become ellipses, squares rectangles: with all of their
  bool retangulos = true;  // freedom more fits meet in the same shape
  int fios = 1;            // threads
  bool todos = false;      // none is sifted out after the coarse fit
  pim::PAUSA pausa;        // called between the fits
};

// Fits a shape of the picture coarsely and tells what is seen then; nothing when the shape got
// lost.
std::optional<ESBOCADOS> ajustaGrosso(const CAMPO& campo, FIGURA& f, float correl, BANCADA& b);

// Fits every detection to the edges around it: all of them coarsely, the promising ones finely.
// Those that end as the same shape are one, the first of them. In the order of the list, whatever
// the number of threads.
std::vector<CANDIDATO> ajustaTodos(const CAMPO& campo, const std::vector<DETECCAO>& lista,
                                   const MODO_DE_AJUSTAR& modo, const PESOS& pesos);

}  // namespace refine
