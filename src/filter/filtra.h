#pragma once

#include "pim/token.h"

// Sub-program `filtra imagem.pgm imagem.ho1 saida.ppm|saida.ho2 parametros`: removes detections
// that overlap stronger ones too much and writes the others as a .ho2 file or drawn over the
// image. argv[0] is the sub-program's name.
void Filtra(int argc, char** argv);

// Smallest correlation and largest overlap (0 to 1) for each shape; -1 means not given.
struct PARAMFILTRA {
  double minCorrDef = 0.1;
  double maxInterDef = 0.3;
  double minCorrCir = -1.0, maxInterCir = -1.0;
  double minCorrRet = -1.0, maxInterRet = -1.0;
  double minCorrQua = -1.0, maxInterQua = -1.0;
  double minCorrEli = -1.0, maxInterEli = -1.0;
};

// Reads "default|circulo|retangulo|quadrado|elipse minCorr maxInter" entries, in any letter case,
// up to the end of the stream or the word "eof". "default" overwrites all shapes named before it;
// shapes that are left without a value, or with a negative one, then take the defaults. pim::erro
// at another word or a bad number.
PARAMFILTRA leParametros(pim::ISTR& s);
