#pragma once

#include <string>
#include <vector>

#include "detect/maxlocal.h"
#include "filter/limiares.h"
#include "pim/token.h"

// Sub-program `filtra imagem.pgm imagem.ho1 saida.ppm|saida.ho2 parametros`: removes detections
// that overlap stronger ones too much and writes the others as a .ho2 file or drawn over the
// image. argv[0] is the sub-program's name.
void Filtra(int argc, char** argv);

// Reads "default|circulo|retangulo|quadrado|elipse minCorr maxInter" entries, in any letter case,
// up to the end of the stream or the word "eof". "default" overwrites all shapes named before it;
// shapes that are left without a value, or with a negative one, then take the defaults, 0.1 and 0.3
// unless given. pim::erro at another word or a bad number.
LIMIARES leParametros(pim::ISTR& s);
