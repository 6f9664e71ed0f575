#pragma once

#include <vector>

#include "kernels/mascara.h"
#include "motor/termos/divisao.h"
#include "motor/termos/regioes.h"
#include "motor/termos/termos.h"
#include "pim/pausa.h"

namespace motor {

// A group of kernels as terms (termos.h) on planes that they share.

// The terms of the sums over whole and core, of a kernel or of a part of it.
struct PARTE {
  std::vector<TERMO> tudo;
  std::vector<TERMO> nucleo;
};

// A kernel of the group as it is and as terms; only the former in a group that doesn't serve.
struct ESQUEMA {
  int indice;  // in the kernel set
  int sPir;    // last level that it is applied to
  MASCARA mascara;
  int nAnel;
  int nNucleo;
  PARTE inteira;
  std::vector<PARTE> partes;  // for planes of 16 bits
  // Whole and core in pieces of rows, where it is divided by columns.
  std::vector<PEDACO> pedacosDoTudo, pedacosDoNucleo;
};

struct GRUPO {
  std::vector<ESQUEMA> kernels;
  DIVISAO divisao = DIVISAO::nenhuma;
  std::vector<PLANO> planos;  // that the terms use, after X
  int margem = 0;             // farthest row or column that a term or piece needs
  bool serve = true;          // false when some kernel has other than three values: no terms
};

// The kernels with indices `primeiro` to `ultimo` inclusive, whose images are shared. `pausa` is
// called between kernels.
GRUPO esquematiza(const std::vector<MASCARA>& kernels, int primeiro, int ultimo,
                  const pim::PAUSA& pausa = {});

}  // namespace motor
