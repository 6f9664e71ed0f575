#pragma once

// Sub-program `oldcorrela imagem.pgm kernel.cfg imagem.ho1 [minCorr]`, the earlier detector: all
// kernels in one group over a pyramid without a limit, no removal of near duplicates. It also
// writes the best correlations of level 0 to "oldcorrela.img" in the current directory. argv[0] is
// the sub-program's name.
void OldCorrela(int argc, char** argv);
