#pragma once

#include "detect/maxlocal.h"

// A detection of one size.
inline MAXLOCAL deteccao(char forma, int li, int ci, double d, float correl = 0.5F) {
  return {correl, forma, li, ci, d, d, 0};
}
