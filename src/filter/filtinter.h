#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "detect/maxlocal.h"
#include "filter/limiares.h"
#include "pim/matriz.h"

// One cell per image pixel: the indices of the kept detections whose shape covers it, in the order
// in which they were added. The outside of the image counts as occupied (a background of {-1}).
// `filtInter` itself keeps the same in a smaller form (ocupacao.h).
using GRADE = MATRIZ<std::vector<int>>;

// Keeps, in their order, the detections of `entrada` (best first) whose correlation is not below
// the minimum of their letter, whose shape does not overlap what is in the grid by more than the
// maximum of their letter, and whose admission takes no kept neighbour over its own maximum. They
// are appended to `saida`, which must be empty. `tamanho` is the size of the image. Overlaps are
// shares of the shape's own pixels, 0 to 1; NaN (a shape without pixels) passes every test. Letters
// other than c, r, q, e are subject to no threshold.
//
// A detection that is withdrawn because of a neighbour leaves its index in most cells of its shape
// (see `retira`), where it goes on blocking later ones.
void filtInter(const std::vector<MAXLOCAL>& entrada, std::vector<MAXLOCAL>& saida, cv::Size tamanho,
               const LIMIARES& limiares);

// `filtInter` with the thresholds of the four letters one by one.
void filtInter(std::vector<MAXLOCAL>& entrada, std::vector<MAXLOCAL>& saida, cv::Size tamanho,
               double minCorrCir, double maxInterCir, double minCorrRet, double maxInterRet,
               double minCorrQua, double maxInterQua, double minCorrEli, double maxInterEli);

// The share of the candidate's pixels that fall on occupied cells or outside the grid. Its mask is
// built into `mascara`. NaN when the mask is empty or holds no pixel of the shape. Part of the
// library for other programs; no command calls it.
double calcInter(const MAXLOCAL& m, cv::Mat_<unsigned char>& mascara, const GRADE& grade);

// The share of the pixels of kept detection number `indice` that fall on cells that hold any other
// index, or outside the grid. Its mask is built into `mascara`. NaN when the mask is empty or holds
// no pixel of the shape. Part of the library for other programs; no command calls it.
double calcInterViz(const MAXLOCAL& m, int indice, cv::Mat_<unsigned char>& mascara,
                    const GRADE& grade);
