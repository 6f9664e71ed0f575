#pragma once

#include <string>
#include <vector>

#include "bench/partes.h"

// What a whole run of a program took.
struct CORRIDA {
  double segundos;
  double megabytes;  // peak memory
};

// Runs an executable of the build folder in the current directory, its output thrown away.
CORRIDA corre(const std::vector<std::string>& linha);

// Whole runs of the program against `simples`, on scenes rendered in the current directory.
std::vector<LINHA> medeCorridas();
