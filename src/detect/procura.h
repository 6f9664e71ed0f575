#pragma once

#include <cstddef>
#include <functional>
#include <opencv2/core.hpp>
#include <vector>

#include "detect/maxlocal.h"
#include "kernels/mascara.h"

namespace detect {

// How far a search has come.
enum class ETAPA {
  grupo,      // a group of kernels is about to be correlated
  trecho,     // some milliseconds later, in the same stage
  ordenacao,  // all groups are done, and their maxima are about to be put in order
  eliminacao  // near duplicates are about to go
};

struct ANDAMENTO {
  ETAPA etapa = ETAPA::grupo;
  std::size_t grupo = 0;    // index of the group, of
  std::size_t nGrupos = 0;  // so many; from `ordenacao` on both are equal
  int primeiro = 0;         // indices of the group's kernels, those of the last group in the end
  int ultimo = 0;
  std::size_t nMaximos = 0;  // found in the groups before this one, near duplicates included
};

// The smallest correlation of a detection unless another is wanted.
inline constexpr double minCorrPadrao = 0.001;

// Told how far a search has come, in the thread that called it; false ends it.
using AVISO = std::function<bool(const ANDAMENTO&)>;

// Thrown by a search that was told to end.
struct INTERROMPIDA {};

// The detections of an image: the local maxima of its correlations with the kernels, group by group
// (kernels/grupos.h) over at most four levels of the pyramid, of at least `minCorr`. In decreasing
// order of correlation, and without those of a letter that has a better one within 2 pixels in both
// rows and columns. The list is empty when there is none.
//
// An image is grey bytes, or floats in which 0 is black and 1 is white. Other values, even not
// finite ones, are searched as well, but more slowly; bytes brought to floats by detect::emReais
// give what the bytes give. An empty image has no detections. Pixels are only read, and kernels
// may be any.
//
// `aviso`, when there is one, is called at each stage and every few milliseconds in between. The
// longest silences are a large kernel of more than two values on a large image, and pictures of
// hundreds of megapixels, which are brought to floats and reduced in one go. INTERROMPIDA is thrown
// once it returns false, and whatever it throws itself reaches the caller.
//
// pim::erro "Erro: Maximos locais demais" when there would be more than `maximoDeMaximos`. Any
// number of threads may search at once, with the same kernels or the same image.
std::vector<MAXLOCAL> procura(cv::Mat_<unsigned char> imagem, const std::vector<MASCARA>& kernels,
                              double minCorr, const AVISO& aviso = {});
std::vector<MAXLOCAL> procura(const cv::Mat_<float>& imagem, const std::vector<MASCARA>& kernels,
                              double minCorr, const AVISO& aviso = {});

}  // namespace detect
