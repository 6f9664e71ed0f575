#pragma once

#include <opencv2/core.hpp>

#include "pim/erro.h"

namespace pim {

// A read-only view of an image that refuses an empty one and shows a background value outside it.
// It shares the pixels of the matrix it is made from.
template <class T>
struct IMG_ {
  cv::Mat_<T> mat;
  T backg;

  // pim::erro with "Erro: IMG_::constructor _mat nulo" when `imagem` holds no data.
  explicit IMG_(const cv::Mat_<T>& imagem, const T& fundo = T{}) : mat(imagem), backg(fundo) {
    if (mat.data == nullptr) erro("Erro: IMG_::constructor _mat nulo");
  }

  // Pixel (l, c), or `backg` outside the image.
  T atb(int l, int c) const {
    const bool dentro = static_cast<unsigned>(l) < static_cast<unsigned>(mat.rows) &&
                        static_cast<unsigned>(c) < static_cast<unsigned>(mat.cols);
    return dentro ? mat(l, c) : backg;
  }
};

}  // namespace pim

using pim::IMG_;
