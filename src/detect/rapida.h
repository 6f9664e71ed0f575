#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "detect/avaliacao.h"
#include "detect/niveis.h"
#include "detect/termos.h"
#include "kernels/mascara.h"

// The fast correlation of a group of kernels with one level: terms (termos.h) over strips of prefix
// sums (faixa.h), evaluated together for all kernels (avaliacao.h).

// A kernel of the group as terms.
struct ESQUEMA {
  int indice;  // in the kernel set
  int sPir;    // last level that it is applied to
  std::vector<TERMO> tudo;
  std::vector<TERMO> nucleo;
  int nAnel;
  int nNucleo;
};

struct GRUPO {
  std::vector<ESQUEMA> kernels;
  std::vector<PLANO> planos;  // that the terms use, after X
  int margem = 0;             // farthest row or column that a term needs
  bool serve = true;          // false when some kernel has other than three values
};

// The kernels with indices `primeiro` to `ultimo` inclusive.
GRUPO preparaGrupo(const std::vector<MASCARA>& kernels, int primeiro, int ultimo);

// Fills `melhor` and `qual`, which have the level's size, for level number L; false, and nothing
// done, when the level or a kernel does not suit.
bool correlaNivel(const NIVEL& nivel, int L, const GRUPO& grupo, const AVALIADOR& avaliador,
                  cv::Mat_<float>& melhor, cv::Mat_<int>& qual);
