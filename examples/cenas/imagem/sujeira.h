#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "examples/cenas/arranjo.h"

namespace cenas {

// Dirt, fibres, scratches and letters: what a detector of grains must leave alone.
void pintaSujeira(cv::Mat_<float>& imagem, const TIPO& tipo, SORTEIO& s);

// A pale irregular body about every grain, several times its size.
void pintaCorpos(cv::Mat_<float>& imagem, const TIPO& tipo, const std::vector<OBJETO>& objetos,
                 SORTEIO& s);

}  // namespace cenas
