#pragma once

// Sub-program `correla imagem.pgm kernel.cfg imagem.ho1 [minCorr]`: writes the local maxima of the
// correlations of the image with every kernel, group by group over four pyramid levels, without
// near duplicates, best first. argv[0] is the sub-program's name.
void Correla(int argc, char** argv);
