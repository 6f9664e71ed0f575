#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

// The innermost work of the detector: the correlation of many pixels with many kernels, and which
// kernel did best.

// A kernel ready for evaluation on planes of prefix sums that lie one after the other in memory.
// The terms are offsets, in elements, from the pixel's place in the first plane. The sum over a
// region is the sum of the elements at `mais` less that at `menos`; the correlation is
//
//   (ring * nucleo - core * anel) * escala,  ring = whole - core,
//
// with `anel` and `nucleo` the pixels of ring and core and escala = 1 / (anel nucleo unit), `unit`
// being the plane's value of an image value 1. A constant image gives exactly 0 as long as float
// holds its sums (2^24).
struct KERNELPRONTO {
  std::vector<std::int32_t> maisTudo, menosTudo;
  std::vector<std::int32_t> maisNucleo, menosNucleo;
  double anel;
  double nucleo;
  double escala;
  int indice;  // in the kernel set
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
// 32-bit integers wrap around; the sums themselves must fit.
template <class T>
using AVALIA = void(const BLOCO<T>& bloco, const std::vector<KERNELPRONTO>& kernels);

// That operation for both kinds of planes, in the instructions named.
struct AVALIADOR {
  const char* nome;
  AVALIA<std::int32_t>* inteiros;
  AVALIA<double>* reais;
};

// Those that this processor can run, the fastest first.
std::vector<AVALIADOR> avaliadores();

// The same one pixel at a time: what all of them must equal to the last bit.
AVALIA<std::int32_t> avaliaSimples;
AVALIA<double> avaliaSimples;
