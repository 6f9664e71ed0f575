#pragma once

#include <cstddef>
#include <cstdint>
#include <opencv2/core.hpp>
#include <vector>

#include "motor/planos/niveis.h"
#include "motor/termos/termos.h"
#include "pim/paginas.h"

namespace motor {

// The planes of prefix sums (termos.h) of a strip of columns of one level, a few rows at a time:
// they are made just before they are used and again for every group of kernels, because reading
// whole planes back from memory would take as long as making them.
//
// The buffer of a plane has `linhas` rows to work on between two margins of `margem` rows, and
// `colunas` columns between two such margins. Outside the level its border pixels repeat; outside
// the buffer the image counts as 0, and `aba` columns more on either side hold what the sums are
// there, so that they can be made without looking at where a row ends.
template <class T>
struct FAIXA {
  int margem;
  int linhas;
  int colunas;
  std::vector<PLANO> planos;  // after X
  int aba;
  std::size_t passo;                          // elements from row to row
  std::size_t tamanho;                        // elements from plane to plane
  std::vector<T, pim::PAGINAS<T>> elementos;  // all planes
  std::vector<T> linhaInteira;                // one row of the level in whole numbers
  T total{};                                  // of the image from the top down to the last row made

  FAIXA(int margemPedida, int linhasPedidas, int colunasPedidas,
        const std::vector<PLANO>& planosPedidos);

  // The bytes that such a strip takes.
  static double bytes(int margem, int linhas, int colunas, const std::vector<PLANO>& planos);

  // Makes buffer rows [de, ate) for the strip that starts at column `x0`, row 0 of the work area
  // being row `y0` of the level. The buffer row before `de` must be there already, unless de is 0.
  void enche(const NIVEL& nivel, int x0, int y0, int de, int ate);

  // Makes row r of plane number `p`; the planes before it have that row already.
  void encheLinha(std::size_t p, int r);

  // Moves the two margins of rows that follow the first `feitas` to the top, where the next rows go
  // on from them.
  void avanca(int feitas);

  // The first pixel of the work area in the first plane.
  const T* origem() const {
    const auto m = static_cast<std::size_t>(margem);
    return elementos.data() + m * passo + m + static_cast<std::size_t>(aba);
  }
};

}  // namespace motor
