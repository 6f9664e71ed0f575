#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

#include "pim/paginas.h"

// Which kept detections cover each pixel of an image, in four bytes and a bit a pixel as long as
// shapes overlap little: a cell that holds one index is that index, and each further index takes
// eight bytes. Indices are 0 or more. The outside of the image counts as occupied by none of them.
struct OCUPACAO {
  unsigned rows;
  unsigned cols;

  // An empty grid for at most `maximo` indices beside the first of each cell: 8 GiB if not given.
  OCUPACAO(int linhas, int colunas, std::size_t maximo = std::size_t{1} << 30);

  // Adds index i to the cells (l, de) to (l, ate), which lie inside the grid. std::bad_alloc when
  // that makes more than `maximo`.
  void acrescenta(int l, int de, int ate, int i);

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

  // An index and, in the terms of a cell, those that were there before it.
  struct ELO {
    int indice;
    int resto;

    bool operator==(const ELO&) const = default;
  };
  // Cells below `vazia` stand for links: -2 for the first, -3 for the second and so on.
  static std::size_t elo(int celula) { return static_cast<std::size_t>(-2 - celula); }

  // Whether two cells are seen at once to hold the same indices: neighbours mostly do.
  bool mesmos(int a, int b) const;

  std::size_t inicio(int l) const { return static_cast<std::size_t>(l) * cols; }
  std::uint64_t* marcas(int l) { return ocupada.data() + static_cast<std::size_t>(l) * palavras; }

  std::vector<int, pim::PAGINAS<int>> celulas;
  std::size_t maximoDeElos;
  std::deque<ELO> elos;
  // A bit a cell, whether it is occupied: most candidates are refused by a look at these, which
  // stay in the caches, while cells must be fetched from memory.
  std::size_t palavras;  // a row
  std::vector<std::uint64_t> ocupada;
};
