#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "detect/maxlocal.h"
#include "pim/converte.h"

// Drawing of detections on colour images (blue, green, red). Everything is clipped to the image.

// Colours every pixel of the outline of `m`, in place. `bold` thickens it by one pixel in the four
// axis directions, but never visits the last column of the outline image. A letter that names no
// shape draws nothing thin, and when bold ends in pim::erro "Erro: IMG_::constructor _mat nulo", as
// does a circle too small to have an outline.
void tracaForma(cv::Mat_<pim::VEC3B>& img, MAXLOCAL m, bool bold, pim::VEC3B cor);

// A copy of `img` with the outlines of all records, in order.
cv::Mat_<pim::VEC3B> tracaFormas(const cv::Mat_<pim::VEC3B>& img, const std::vector<MAXLOCAL>& v,
                                 bool bold, pim::VEC3B cor);

// A copy of `img` with the index of each record in the list, from 0, in red on white at its centre.
cv::Mat_<pim::VEC3B> tracaIndices(const cv::Mat_<pim::VEC3B>& img, const std::vector<MAXLOCAL>& v);

// A copy of `img` with each centre marked in green: one pixel, or when `bold` a block of 3 by 3. At
// the top and left border a bold block moves inward; it never paints the last row or column. A
// centre above or left of the image is marked on its first row or column, one below or right of it
// is not.
cv::Mat_<pim::VEC3B> tracaCentros(const cv::Mat_<pim::VEC3B>& img, const std::vector<MAXLOCAL>& v,
                                  bool bold);
