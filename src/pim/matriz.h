#pragma once

#include <cstddef>
#include <vector>

#include "pim/erro.h"

namespace pim {

// The assertion "l<rows && c<cols" of an access to element (l, c) of a grid.
inline void afirmaDentro(unsigned l, unsigned c, unsigned rows, unsigned cols) {
  afirma(l < rows && c < cols, "l<rows && c<cols",
         {"pimvet", __LINE__, "T& MATRIZ<T>::operator()(unsigned int, unsigned int)"});
}

// A two-dimensional grid stored row by row, with a background element seen outside it.
template <class T>
struct MATRIZ {
  unsigned rows = 0;
  unsigned cols = 0;
  std::size_t n = 0;  // rows * cols
  T backg{};          // what `atb` gives outside the grid
  std::vector<T> celulas;

  // A grid of default-constructed cells.
  MATRIZ(unsigned linhas, unsigned colunas)
      : rows(linhas), cols(colunas), n(std::size_t{linhas} * colunas), celulas(n) {}

  // Cell (l, c). Coordinates outside the grid, negative ones included (they become large when
  // converted to unsigned), fail the assertion "l<rows && c<cols".
  T& operator()(unsigned l, unsigned c) { return celulas[posicao(l, c)]; }
  const T& operator()(unsigned l, unsigned c) const { return celulas[posicao(l, c)]; }

  // Cell (l, c), or `backg` outside the grid.
  const T& atb(int l, int c) const {
    const bool dentro = static_cast<unsigned>(l) < rows && static_cast<unsigned>(c) < cols;
    return dentro ? celulas[static_cast<std::size_t>(l) * cols + static_cast<unsigned>(c)] : backg;
  }

 private:
  std::size_t posicao(unsigned l, unsigned c) const {
    afirmaDentro(l, c, rows, cols);
    return std::size_t{l} * cols + c;
  }
};

}  // namespace pim

using pim::MATRIZ;
