#pragma once

#include <vector>

#include "detect/termos.h"
#include "kernels/mascara.h"

// A group of kernels as terms (termos.h) on planes that they share.

// The terms of the sums over whole and core, of a kernel or of some rows of it.
struct PARTE {
  std::vector<TERMO> tudo;
  std::vector<TERMO> nucleo;
};

// A kernel of the group as terms.
struct ESQUEMA {
  int indice;  // in the kernel set
  int sPir;    // last level that it is applied to
  PARTE inteira;
  std::vector<PARTE> curtas;  // the same for 16-bit sums of bytes; none when they would be too many
  int nAnel;
  int nNucleo;
};

struct GRUPO {
  std::vector<ESQUEMA> kernels;
  std::vector<PLANO> planos;  // that the terms use, after X
  int margem = 0;             // farthest row or column that a term needs
  bool serve = true;          // false when some kernel has other than three values
};

// The kernels with indices `primeiro` to `ultimo` inclusive.
GRUPO preparaGrupo(const std::vector<MASCARA>& kernels, int primeiro, int ultimo);
