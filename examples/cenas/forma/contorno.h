#pragma once

#include "examples/cenas/forma/cobertura.h"
#include "examples/cenas/tipos/tipo.h"
#include "examples/grao.h"

namespace cenas {

// The outline of the shape itself. A curve has as many corners as keep it within 0.001 pixel, and
// the shape's own area.
CONTORNO contornoDe(const GRAO& g);

// An outline of another build about `g`: `irregular` is the exponent of a superellipse (2 is an
// ellipse), or the share of the radius that waves take.
CONTORNO contornoDe(const GRAO& g, FEITIO feitio, double irregular, SORTEIO& s);

// The same about the centre of `g`, `fator` times as large.
CONTORNO escalado(const CONTORNO& contorno, const GRAO& g, double fator);

CONTORNO deslocado(CONTORNO contorno, cv::Point2d quanto);

}  // namespace cenas
