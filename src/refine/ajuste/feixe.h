#pragma once

#include <cstddef>
#include <vector>

namespace refine {

// The innermost work of the fit: profiles of a picture read side by side, a sample of a contour in
// each lane of a vector. The same operations in the same order in every instruction set.

// Samples are padded to a multiple of this, so that vectors are always full.
inline constexpr std::size_t multiploDoFeixe = 16;

// Straight lines of reading, one a sample: point k lies at (l + k dl, c + k dc). Every such point
// must have all four pixels around it; those of the padding too.
struct FEIXE {
  const float* l;
  const float* c;
  const float* dl;
  const float* dc;
  std::size_t n;  // samples, a multiple of `multiploDoFeixe`
};

// The pixels read: rows `passo` elements apart. `linha` is the number of the first row.
struct PIXELS {
  const float* origem;
  int linha;
  int passo;
};

// Grey of points 0 to `pontos` - 1, between pixels by bilinear interpolation: that of point k of
// sample i goes to greys[k * passo + i].
using LE_FEIXE = void(const PIXELS& pixels, const FEIXE& feixe, int pontos, float* greys,
                      std::size_t passo);

// How an edge is looked for: 2 (n + nitidez + vao) + 1 greys a sample; the slope of step k, -n to
// n, is over `vao` steps to either side.
struct BUSCA {
  int n;
  int vao;
  int nitidez;     // what the slope exceeds those so far to either side by counts; 0: the slope
  float primeira;  // the first slope from inside that is a peak of at least this; 0: the greatest
  const float* peso;  // of steps 0 to n to either side
};

// Peak of the slope of each sample: its place in steps from the middle, refined by a parabola, its
// height and its variance in square steps (1 where there is no parabola).
struct PICOS {
  float* onde;
  float* rampa;
  float* largura2;
};
using ACHA_PICOS = void(const float* greys, std::size_t passo, std::size_t n, const BUSCA& busca,
                        const PICOS& picos);

// Both, in the instructions named.
struct LEITOR {
  const char* nome;
  LE_FEIXE* le;
  ACHA_PICOS* acha;
};

// The instructions that this processor can run, the fastest first.
std::vector<LEITOR> leitores();
const LEITOR& melhorLeitor();

}  // namespace refine
