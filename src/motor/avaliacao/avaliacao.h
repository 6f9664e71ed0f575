#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace motor {

// The innermost work of the detector: the correlation of many pixels with many kernels, and which
// kernel did best.

// Where a sum over a region comes from, on planes of prefix sums that lie one after the other in
// memory: offsets, in elements, from the pixel's place in the first plane. The sum is that of the
// elements at `mais` less that of those at `menos`.
struct SOMA {
  std::vector<std::int32_t> mais, menos;
};

// The sums over whole and core, of a kernel or of a part of it.
struct SOMAS {
  SOMA tudo;
  SOMA nucleo;
};

// The sum over pixels side by side, on the first plane: the element at `ultimo` less that at
// `antes`.
struct EXTREMOS {
  std::int32_t ultimo;
  std::int32_t antes;
};

// A kernel ready for evaluation. Its correlation is
//
//   (ring * nNucleo - core * nAnel) * escala,  ring = whole - core,
//
// ring and core being the sums over them, nAnel and nNucleo their pixels, and
// escala = 1 / (nAnel nNucleo unit), with `unit` the planes' value of an image value 1. A constant
// image gives exactly 0 as long as float holds its sums (2^24).
struct KERNELPRONTO {
  std::vector<SOMAS> partes;  // of its parts for planes of 16 bits (divisao.h); one otherwise
  double nAnel;
  double nNucleo;
  double escala;
  int indice;  // in the kernel set
  // For evaluation downward, whole and core in pieces of rows.
  std::vector<EXTREMOS> pedacosDoTudo, pedacosDoNucleo;
};

// Elements that may be read beyond the last pixel of a row: four of the longest vectors.
inline constexpr int folgaDeLeitura = 64;

// A block of pixels: their place in the first plane, and where their results go. Strides are in
// elements. `folgaDeLeitura` elements after the last pixel of a row may be read, though not used.
template <class T>
struct BLOCO {
  const T* pixel;
  std::size_t passoPlano;
  int linhas;
  int colunas;
  float* correl;
  std::size_t passoCorrel;
  std::int32_t* indice;
  std::size_t passoIndice;
};

// Sets, for every pixel of the block, the highest correlation and the index of its kernel; -1 and
// -1 where no kernel exceeds -1. The kernels are tried in order and the first wins a tie. Planes of
// integers wrap around; the sums over ring and core of each part must fit their type. Parts are
// added up in 32 bits, so that planes of 16 bits give the same results as planes of 32.
template <class T>
using AVALIA = void(const BLOCO<T>& bloco, const std::vector<KERNELPRONTO>& kernels);

// What evaluation downward takes along from block to block of a strip: of the last row evaluated,
// for every column, the sum over a region and the 16-bit sum over each part of it.
struct DESCIDA {
  struct LINHA {
    std::vector<std::int32_t> somas;
    std::vector<std::vector<std::int16_t>> restos;
  };
  struct KERNEL {
    LINHA tudo;
    LINHA nucleo;
  };
  std::vector<KERNEL> kernels;  // none at the top of a strip
};

// What AVALIA does, equal to the last bit, on planes of 16 bits for kernels divided by columns
// (divisao.h): what the sum over a part of whole or core changes by from one row to the next must
// fit, and the sum over each of the kernels' pieces, from which the top row of a strip is made. The
// blocks of a strip follow each other downward.
using DESCE = void(const BLOCO<std::int16_t>& bloco, const std::vector<KERNELPRONTO>& kernels,
                   DESCIDA& descida);

// Evaluation on all kinds of planes, in the instructions named.
struct AVALIADOR {
  const char* nome;
  AVALIA<std::int16_t>* curtos;
  DESCE* descendo;  // none where 32 bits do as well
  AVALIA<std::int32_t>* inteiros;
  AVALIA<double>* reais;
};

// The instructions that this processor can run, the fastest first.
std::vector<AVALIADOR> avaliadores();

// Evaluation in plain C++, in loops that compilers turn into the vectors that every processor of
// their kind has.
AVALIA<std::int16_t> avaliaLinhas;
AVALIA<std::int32_t> avaliaLinhas;
AVALIA<double> avaliaLinhas;

// Evaluation one pixel at a time: what all others must equal to the last bit.
AVALIA<std::int16_t> avaliaSimples;
AVALIA<std::int32_t> avaliaSimples;
AVALIA<double> avaliaSimples;

}  // namespace motor
