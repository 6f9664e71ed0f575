#pragma once

#include <cstdint>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "examples/cenas/arranjo.h"

namespace cenas {

struct CENA {
  cv::Mat_<unsigned char> foto;
  std::vector<OBJETO> graos;  // those that count
};

// The scene of this kind and seed: the same bytes on every machine whose library rounds sines and
// exponentials alike.
CENA renderiza(const TIPO& tipo, std::uint64_t semente, cv::Size tamanho);

// The truth as text: the line "letter,row,col,d1,d2,ang,edge" and one line for each grain, three
// decimals. `ang` is in degrees, 0 along the columns, and turns COUNTER-clockwise as displayed, the
// other way round than in the program's own lists; `edge` is 1 for a grain that the border cuts.
// pim::erro when the file can't be written whole.
void gravaVerdade(const std::vector<OBJETO>& graos, const std::string& nome);

}  // namespace cenas
