#pragma once

#include <memory>
#include <opencv2/core.hpp>
#include <vector>

#include "kernels/mascara.h"
#include "pim/pausa.h"

// The engine of the search: the correlation of one image with a group of kernels, as the best value
// at every pixel and the kernel that reached it. This header is all that the detector knows of it.
// How it is done is chosen inside, by what image, kernels and processor allow: sums of whole
// numbers of 16 or 32 bits or of doubles (rapida.h), or the general filter (geral.h).
//
// Nothing is kept between calls, and what is prepared is only read: threads may call at once, and
// share it.
namespace motor {

// An image, such as a level of a pyramid, and the kernels of a group, both made ready to be
// correlated.
struct NIVEL;
struct GRUPO;

// What a grey byte of 1 is worth in an image of 0..1. Images made of whole multiples of it, and
// what pim::myPyrDown reduces them to once, are added up exactly in whole numbers (niveis.h).
inline constexpr double valorDoByte = 0.00392156862745098;  // 1/255

// Looks at an image of any finite or other values, not empty, whose pixels the result shares and
// which must not change while that is used. It serves any number of groups.
std::shared_ptr<const NIVEL> preparaNivel(const cv::Mat_<float>& imagem);

// The kernels with indices `primeiro` to `ultimo` inclusive; none when the range is empty. Weights
// may be any, and are shared, or drawn when they were left out (mascara.h); those with the same
// positive and the same negative value everywhere are done fast. `pausa` is called between kernels.
std::shared_ptr<const GRUPO> preparaGrupo(const std::vector<MASCARA>& kernels, int primeiro,
                                          int ultimo, const pim::PAUSA& pausa = {});

// Correlates level number L with the kernels of the group that are applied to it (sPir >= L). Both
// results get the level's size: the highest correlation of each pixel, -1 where no kernel exceeded
// that, and the index in the kernel set of the kernel that reached it, -1 for none. The lower index
// wins a tie. Kernels are not flipped, their centre is the anchor, and pixels outside the level
// repeat its border.
//
// `pausa` is called between blocks of pixels, by the general filter between kernels.
//
// Correlations differ from exact sums by less than 1e-6 on an image of 0..1 (niveis.h), and equal
// neighbourhoods get equal values.
void correlaNivel(const NIVEL& nivel, int L, const GRUPO& grupo, cv::Mat_<float>& melhor,
                  cv::Mat_<int>& qual, const pim::PAUSA& pausa = {});

// The correlation of an image with one kernel of any weights, by the general filter.
void filtra(const cv::Mat_<float>& imagem, const cv::Mat_<float>& pesos, cv::Mat_<float>& saida);

}  // namespace motor
