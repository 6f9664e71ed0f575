#pragma once

#include <string>
#include <vector>

// One line of the table: what was done, the time of the plain and of the fast form in seconds.
struct LINHA {
  std::string trabalho;
  double simples;  // 0: not measured
  double rapida;
  std::string nota;
};

// Runs the parts (correlation of several kernel banks on a 12 MP scene, near duplicates, overlap
// filter) through Google Benchmark. `cena` is the scene's file.
std::vector<LINHA> medePartes(const std::string& cena);
