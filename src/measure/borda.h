#pragma once

#include <vector>

#include "measure/grao.h"

namespace measure {

// What is done about the border of the picture: large grains are cut by it more often than small
// ones, so the grains that lie whole in the picture are too small on average.
enum class BORDA {
  corrige,  // cut grains don't count, the others by the inverse of their chance of lying whole in
            // it
  inclui,   // all count alike, cut ones by what their shape would be
  exclui    // cut grains are left out, the others count alike
};

// In which part of the positions at which a grain meets the picture with its reference point it
// lies whole in it: (W - w) (H - h) / (W H) for a picture of W by H that the grain's upright box is
// w by h of. Miles (1974), "On the elimination of edge effects in planar sampling"; Lantuejoul
// (1978).
double chanceDeInteiro(const GRAO& g, int rows, int cols);

// Sets how many times each grain counts (`vezes`) and, for `exclui`, takes the cut ones away.
void ponderaBorda(std::vector<GRAO>& graos, int rows, int cols, BORDA borda);

}  // namespace measure
