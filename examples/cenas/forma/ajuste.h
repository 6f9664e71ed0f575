#pragma once

#include "examples/cenas/forma/cobertura.h"
#include "examples/grao.h"

namespace cenas {

// The shape of letter `forma` and of the outline's area that shares most with it, sought from
// `inicio`: what an irregular grain is told as.
GRAO ajusta(const CONTORNO& contorno, char forma, const GRAO& inicio);

// Area shared over area covered, on a grid of 1/4 pixel or finer.
double semelhanca(const CONTORNO& contorno, const GRAO& g);

}  // namespace cenas
