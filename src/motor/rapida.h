#pragma once

#include <cstdint>
#include <opencv2/core.hpp>
#include <vector>

#include "motor/avaliacao/avaliacao.h"
#include "motor/motor.h"
#include "motor/planos/niveis.h"
#include "motor/termos/grupo.h"

// The fast correlation of a group of kernels with one level: terms (termos.h) over strips of prefix
// sums (faixa.h), evaluated together for all kernels (avaliacao.h).

namespace motor {

// One level, the kernels of the group that are applied to it, and where the results go, which have
// the level's size.
struct TRABALHO {
  const NIVEL& nivel;
  std::vector<const ESQUEMA*> kernels;
  const GRUPO& grupo;
  const pim::PAUSA& pausa;
  cv::Mat_<float>& melhor;
  cv::Mat_<int>& qual;
};

// The columns of a strip of the level, and the bytes that its planes of doubles take.
int colunasDaFaixa(const NIVEL& nivel, const GRUPO& grupo);
double bytesDaFaixa(const NIVEL& nivel, const GRUPO& grupo);

// Does the work on planes of the type that `avalia` takes, which must suit level and kernels.
void percorre(const TRABALHO& t, AVALIA<std::int16_t>* avalia);
void percorre(const TRABALHO& t, AVALIA<std::int32_t>* avalia);
void percorre(const TRABALHO& t, AVALIA<double>* avalia);
void percorre(const TRABALHO& t, DESCE* avalia);

}  // namespace motor
