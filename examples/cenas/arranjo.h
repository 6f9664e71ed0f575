#pragma once

#include <vector>

#include "examples/cenas/forma/contorno.h"

namespace cenas {

// A grain where it lies.
struct OBJETO {
  GRAO verdade;       // the shape it is told as
  CONTORNO contorno;  // its own outline
  RETALHO cobertura;
  bool cortado = false;  // reaches beyond the picture
  bool claro = false;    // brighter than the ground

  explicit OBJETO(const GRAO& g, CONTORNO c);
};

// The grains of a scene, those below before those that lie on them. Numbers of exact shapes are
// whole thousandths, as they are written. There are fewer than asked for when no room is left.
std::vector<OBJETO> arranja(const TIPO& tipo, cv::Size tamanho, SORTEIO& s);

}  // namespace cenas
