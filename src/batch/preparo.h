#pragma once

#include <cstdint>
#include <string>

#include "batch/fotografia.h"
#include "sugere/recado.h"

namespace batch {

// What is looked at before the first photograph, so that a mistake that would fail them all is told
// once.
struct PREPARO {
  std::string erro;         // why the run can't begin, or empty
  std::uint64_t bytes = 0;  // of the kernels
  sugere::RECADO recado;    // what kernel.cfg says beyond them
  std::uint64_t kernels = 0;
  std::string texto;  // the text of kernel.cfg
};

// Reads kernel.cfg once, keeps a copy of it in the building site (changes during the run must not
// reach half of the photographs) and checks it and the parameters of filtra in a process of their
// own. Fills in the fields of `r` that concern the kernels. False when interrupted.
bool prepara(RECEITA& r, PREPARO& p);

}  // namespace batch
