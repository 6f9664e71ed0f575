#pragma once

#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "refine/contorno/figura.h"

namespace treino {

// The true grains of a picture, in the order of their file.
struct VERDADE {
  std::vector<refine::FIGURA> graos;
  cv::Mat_<int> rotulos;      // empty, or k + 1 on the pixels of grain k and 0 elsewhere
  std::vector<double> areas;  // of the labels, from 0
};

// Reads the truth table (docs/treino.md) and, unless its name is empty, the label image. pim::erro
// naming the file when a column is missing, a number is none, or a label has no grain.
VERDADE leVerdade(const std::string& tabela, const std::string& rotulos);

// The true grain that has most in common with a shape, and the share of their union that both
// cover: 0 and -1 when there is none.
struct ACERTO {
  double iou = 0;
  int grao = -1;
};
ACERTO acerto(const VERDADE& v, const refine::FIGURA& f);

}  // namespace treino
