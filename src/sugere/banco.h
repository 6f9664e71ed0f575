#pragma once

#include <string>
#include <vector>

namespace sugere {

// A line of kernel.cfg: a family in one proportion and a range of sizes.
struct LINHA {
  char forma = 'c';
  double proporcao = 1;  // greater size by lesser; 1 for 'c' and 'q'
  double menor = 8;      // diameters of equal area, pixels
  double maior = 128;
};

// How finely to search.
struct PASSOS {
  int angulo = 15;  // degrees
  int oitava = 5;   // scales an octave
};

// Settings and shapes in the language of kernel.cfg, without comments: a line of settings wherever
// they change, and then shapes. Ranges begin where shapes can be drawn: lesser sizes of 4.3 pixels,
// discs of 3. Sizes of more than twice the smallest are left to the pyramid, as far as it reaches;
// where the smallest are large themselves, up to twice as many small ones are searched for.
std::string texto(const std::vector<LINHA>& linhas, const PASSOS& passos);

}  // namespace sugere
