#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "motor/termos/regioes.h"

namespace motor {

// Sides of regions as staircases.
//
// The ends of a side are many, one a row, but most follow each other in a few regular steps: one
// column a row at 45 degrees, at other angles a short pattern of steps that repeats. Along such a
// staircase one more prefix sum,
//
//   Q(p) = X at the end p + X at the ends of the rows above it, up to one period
//          + Q(p - one period),
//
// replaces a run of whole periods, whatever its length, by two terms: Q at its last end less Q one
// period before its first.
//
// A run of steps 0, for instance, that continues one column to the right,
//
//   . . x .        the ends of four rows; ends a, a' and b, b' of two runs with steps 0
//   . . x .  a'    sum = Q(a') - Q(a - row) + Q(b') - Q(b - row)
//   . . . x  b
//   . . . x  b'
//
// needs no two terms where the runs meet: a' and the place before b are neighbours, and
// Q(a') - Q(b - row) is a sum of single pixels, up along the column of b. A plane of such sums of
// pixels, one a period, makes it one term. The same holds for longer periods wherever the two runs
// differ by one pixel a period; the side is said to deviate there.

// A pattern of steps: passos[i] is by how many columns the end of row i+1 of a period stands right
// of the end of row i; the last is the step to the next period.
struct ESCADA {
  std::vector<int> passos;
  bool desvia = false;  // whether it has the plane for deviations

  int altura() const { return static_cast<int>(passos.size()); }  // rows of a period
  int largura() const;                                            // columns of a period
  // By how many columns the end `m` rows above stands left of the end of row `fase` of a period.
  int recuo(int fase, int m) const;
};

// Where a deviation's pixels stand: `dl` rows above the last end before it, at column `dc` from
// that end, to be added (sinal +1) or taken off.
struct DESVIO {
  int dl;
  int dc;
  int sinal;
};

// What it takes to go on from row `de` of a period to row `para`, `passo` columns to the right;
// nothing when the pattern does so by itself or when it takes more than one pixel a period.
std::optional<DESVIO> desvio(const ESCADA& e, int de, int para, int passo);

// Whether the pattern goes on from row `de` of a period to row `para` by `passo` columns.
bool continua(const ESCADA& e, int de, int para, int passo);

// What an end of a side belongs to: a row of a staircase's period, or nothing.
struct DEGRAU {
  int escada = -1;  // index
  int fase = 0;

  bool operator==(const DEGRAU&) const = default;
};

// The assignment of the ends of `lado` with the fewest terms: one for an end alone, two for a run
// of whole periods, one more for each deviation within it.
std::vector<DEGRAU> divideLado(const LADO& lado, const std::vector<ESCADA>& escadas);

// The number of those terms for all sides together.
int custoDosLados(const std::vector<LADO>& lados, const std::vector<ESCADA>& escadas);

}  // namespace motor
