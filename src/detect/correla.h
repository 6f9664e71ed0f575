#pragma once

#include <string>

#include "detect/piramide.h"

// Sub-program `correla imagem.pgm kernel.cfg imagem.ho1 [minCorr]`: writes the local maxima of the
// correlations of the image with every kernel, group by group over four pyramid levels, without
// near duplicates, best first. argv[0] is the sub-program's name.
void Correla(int argc, char** argv);

// Reads a grey image, brings it to 0..1 and builds its pyramid of at most `maximo` levels (no
// limit when below 1).
void lePiramide(const std::string& nome, PIRAMIDE& piramide, int maximo);
