#pragma once

#include <cstddef>
#include <vector>

#include "pim/paginas.h"

// Which kept detections cover each pixel of an image, in four bytes a pixel as long as shapes
// overlap little: a cell that holds one index is that index; only a cell that has ever held more
// has a list of its own. Indices are 0 or more. The outside of the image counts as occupied by none
// of them.
struct OCUPACAO {
  unsigned rows;
  unsigned cols;

  OCUPACAO(int linhas, int colunas);

  // Adds index i to a cell inside the grid.
  void acrescenta(int l, int c, int i);

  // Takes the last index added off a cell; an empty cell stays so. Outside the grid the assertion
  // "l<rows && c<cols" fails, and so does "t.back()==int(wi)" when that index is not `wi`.
  void retira(int l, int c, int wi);

  // Of the cells (l, de) to (l, ate), which lie inside the grid: how many are occupied, and how
  // many hold an index other than `indice`.
  int ocupadas(int l, int de, int ate) const;
  int deOutros(int l, int de, int ate, int indice) const;

  // Tells the processor that those cells will be needed soon.
  void antecipa(int l, int de, int ate) const;

  // Appends the indices of those cells to `indices`; some repeats are left out.
  void junta(int l, int de, int ate, std::vector<int>& indices) const;

 private:
  static constexpr int vazia = -1;

  // Cells below `vazia` stand for lists: -2 for the first, -3 for the second and so on.
  static std::size_t lista(int celula) { return static_cast<std::size_t>(-2 - celula); }
  // Whether a cell's list holds an index other than `indice`.
  bool temOutro(int celula, int indice) const;
  const int* linha(int l) const { return celulas.data() + static_cast<std::size_t>(l) * cols; }

  std::vector<int, pim::PAGINAS<int>> celulas;
  std::vector<std::vector<int>> listas;
};
