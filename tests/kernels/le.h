#pragma once

#include <string>
#include <vector>

#include "apoio/pasta.h"
#include "kernels/lekernels.h"

// The kernels of a file with this text.
inline std::vector<MASCARA> le(const std::string& texto, IMAGENS imagens = IMAGENS::todas) {
  const PASTA pasta;
  grava("kernel.cfg", texto);
  std::vector<MASCARA> kernels;
  leKernels("kernel.cfg", kernels, imagens);
  return kernels;
}
