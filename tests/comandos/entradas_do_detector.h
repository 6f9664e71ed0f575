#pragma once

#include <string>

#include "apoio/detector.h"
#include "apoio/pasta.h"
#include "pim/imagem.h"

// The photograph a.pgm and the kernels k.cfg, which find its grains.
inline void preparaEntradas(
    const std::string& cfg = "escoitava 2 escala 0.5 a 1 passoang 45 circulo 21 quadrado 18") {
  pim::imp(fotoDeGraos(), "a.pgm");
  grava("k.cfg", cfg);
}
