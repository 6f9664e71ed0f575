#pragma once

#include <optional>
#include <vector>

#include "kernels/mascara.h"
#include "motor/termos/regioes.h"

namespace motor {

// How kernels are divided so that sums over a photograph's bytes can be made in 16 bits: a vector
// of the processor then holds twice as many of them as of 32 bits.
//
// Bytes go into the planes of prefix sums less 127 (niveis.h), so that a pixel counts 128 at most.
// Integers that leave their range wrap around. Planes and terms do so all the time, which does no
// harm: a sum over a region that lies within the range at last is right, whatever came before. One
// of more pixels is known up to multiples of 2^16. A kernel is therefore divided into parts, whose
// sums are added up in 32 bits, so that nothing is lost or rounded on the way:
//
// By rows: each part is a few rows, of so few pixels that the sums over its ring and over its core
// fit. The sum over both together need not, as the ring is the whole less the core.
//
// By columns, for larger kernels: each part is some columns, and its sums do not fit, but what they
// change by from one row of the photograph to the next does, since in each stretch of pixels down a
// column one pixel enters below and one leaves above. Those changes lead from the sums of one row
// to those of the next. With two digits in place of 16 bits: where the sums down a column of the
// photograph are 480, 497 and 463, a plane tells 80, 97 and 63. As long as a sum changes by less
// than 50 from row to row, the changes are those of the two digits, 17 and -34, so that from 480
// the others follow. The sums of the first row, where there is none to come from, are added up from
// pieces of rows, whose sums fit again.
enum class DIVISAO {
  nenhuma,  // planes of 32 bits or doubles, and kernels whole
  linhas,
  colunas
};

// The pixels of a part's ring or core, where it is rows, and of a piece, at most: a pixel counts
// 128 at most, and 16 bits hold sums up to 32767.
inline constexpr int maximoDePixels = 32767 / 128;

// The sides of whole and core, of a kernel or of a part of it.
struct LADOS {
  std::vector<LADO> tudo;
  std::vector<LADO> nucleo;
};

LADOS ladosDe(const REGIAO& tudo, const REGIAO& nucleo);

// A kernel cut up.
struct CORTADO {
  const MASCARA* mascara;
  std::optional<REGIOES> guardadas;  // as long as those of the group don't take too much
  LADOS inteiro;
  std::vector<LADOS> partes;  // none where it is not divided

  REGIOES regioes() const {
    return guardadas ? *guardadas : regioesDoKernel(kernels::imagemDoKernel(*mascara)).value();
  }
};

// Divides the kernels, all in the same way: by rows if no kernel needs too many parts, by columns
// otherwise, or not at all.
DIVISAO divide(std::vector<CORTADO>& kernels);

}  // namespace motor
