#pragma once

#include <opencv2/core.hpp>

#include "motor/avaliacao/avaliacao.h"
#include "motor/motor.h"
#include "motor/planos/niveis.h"
#include "motor/termos/grupo.h"

namespace motor {

// The ways of correlating a level with a group, named after the planes of prefix sums (faixa.h)
// that they go over. All but the last are those of rapida.h; 16 and 32 bits give the same results
// to the last bit.
enum class CAMINHO {
  curtos,    // 16 bits, kernels in parts of a few rows
  descendo,  // 16 bits, kernels in parts of some columns, row after row downward
  inteiros,  // 32 bits
  reais,     // doubles
  geral      // none: the general filter (geral.h)
};

// The work of motor::correlaNivel in the instructions given, by the fastest way that suits. Returns
// that way.
CAMINHO correlaCom(const AVALIADOR& avaliador, const NIVEL& nivel, int L, const GRUPO& grupo,
                   cv::Mat_<float>& melhor, cv::Mat_<int>& qual, const pim::PAUSA& pausa = {});

}  // namespace motor
