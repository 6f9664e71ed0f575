#pragma once

#include <opencv2/core.hpp>

#include "detect/avaliacao.h"
#include "detect/grupo.h"
#include "detect/niveis.h"

// The fast correlation of a group of kernels with one level: terms (termos.h) over strips of prefix
// sums (faixa.h), evaluated together for all kernels (avaliacao.h).

// Fills `melhor` and `qual`, which have the level's size, for level number L; false, and nothing
// done, when the level or a kernel does not suit.
bool correlaNivel(const NIVEL& nivel, int L, const GRUPO& grupo, const AVALIADOR& avaliador,
                  cv::Mat_<float>& melhor, cv::Mat_<int>& qual);
