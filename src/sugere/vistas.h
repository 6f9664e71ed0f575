#pragma once

#include <cstddef>
#include <opencv2/core.hpp>
#include <vector>

#include "refine/contorno/figura.h"

namespace sugere {

// A part of a photograph, or all of it in less detail, as it is looked at.
struct VISTA {
  std::size_t foto = 0;  // index of the photograph
  cv::Mat_<unsigned char> cinza;
  int reducao = 1;  // pixels of the photograph along a side of one of these
  int linha = 0;    // of the photograph, at the top left
  int coluna = 0;
  int menorLado = 0;  // of the photograph
  double parte = 1;   // of the photograph's area that it shows
};

// `quantos` of the indices below `n`, spread evenly from the first to the last; all when there are
// no more.
std::vector<std::size_t> espalhados(std::size_t n, std::size_t quantos);

// The picture with each `fator` by `fator` pixels averaged into one; what does not fill the last
// row or column is left out. A copy for 1.
cv::Mat_<unsigned char> reduzida(const cv::Mat_<unsigned char>& img, int fator);

// A shape of a reduced picture as it lies in the picture.
refine::FIGURA ampliada(refine::FIGURA f, int fator);

// What to look at of photograph `numero` when about `pixels` pixels may be looked at: the whole
// photograph if it is no larger; else a few parts of it as they are, at places that differ from one
// number to the next, and the whole reduced. No pixels are shared with `foto`.
std::vector<VISTA> vistas(const cv::Mat_<unsigned char>& foto, std::size_t numero, double pixels);

// Whether a grain of this equivalent diameter, in pixels of the photograph, shows well in the view.
bool mostra(const VISTA& v, double diametro);

}  // namespace sugere
