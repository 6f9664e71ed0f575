#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "refine/contorno/figura.h"

namespace refine {

// Accepted shapes by place: which may cover a point. The plane is cut into square cells; a shape is
// listed in every cell that its box touches.
struct VIZINHOS {
  double lado;  // of a cell, pixels
  std::vector<FIGURA> figuras;
  std::vector<EIXOS> eixos;
  std::vector<bool> vale;  // false once taken back
  std::unordered_map<std::uint64_t, std::vector<std::uint32_t>> celas;

  explicit VIZINHOS(double ladoDaCela) : lado(ladoDaCela) {}

  std::size_t poe(const FIGURA& f);
  void tira(std::size_t k) { vale[k] = false; }

  // Numbers of the shapes whose box may touch that of `f`, increasing, each once. `v` is replaced.
  void perto(const FIGURA& f, std::vector<std::uint32_t>& v) const;
};

// Points spread evenly over the inside of the shape, some 64; `v` is replaced.
struct PONTO_NA_FOTO {
  double l, c;
};
void pontosDentro(const FIGURA& f, std::vector<PONTO_NA_FOTO>& v);

}  // namespace refine
