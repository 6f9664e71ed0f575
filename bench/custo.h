#pragma once

#include <string>
#include <vector>

// What the search for maxima costs, for one amount of work.
struct CUSTO {
  std::string trabalho;
  double segundos;
  double nanossegundos;  // per pixel of the photograph and kernel
};

// The search on photographs of 3, 12 and 48 MP, and with 10, 100 and 1000 kernels on 1 MP.
std::vector<CUSTO> medeCustos();

// The peak memory of `correla` on the scene of a file, in bytes per pixel, the list of maxima being
// short.
double bytesPorPixel(const std::string& cena, double pixels);
