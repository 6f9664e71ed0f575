#pragma once

#include <string>
#include <vector>

#include "apoio/pasta.h"
#include "kernels/lekernels.h"

// The kernels of a file with this text.
inline std::vector<MASCARA> le(const std::string& texto) {
  const PASTA pasta;
  grava("kernel.cfg", texto);
  std::vector<MASCARA> kernels;
  leKernels("kernel.cfg", kernels);
  return kernels;
}
