#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "detect/maxlocal.h"

// Kept detections by place, to tell at once whether one of a given letter lies near a point.
//
// The plane is cut into square cells of maxDist + 1 pixels. Two detections of one letter in one
// cell would be within maxDist of each other, so a cell holds at most one, and all that lie within
// maxDist of a point are in its cell or the eight around it: nine looks, however many are kept.
struct VIZINHANCA {
  struct PONTO {
    int li;
    int ci;
  };

  // For the detections of `lista`, none of them kept yet; the distance is at least 0.
  VIZINHANCA(const std::vector<MAXLOCAL>& lista, int distancia);

  // A kept detection of the letter of `m` within maxDist of it in rows and in columns; null when
  // there is none.
  const PONTO* procura(const MAXLOCAL& m) const;

  // Keeps `m`, near which nothing of its letter may be kept yet.
  void acrescenta(const MAXLOCAL& m);

 private:
  // The letter's layer of cells, and the number of a cell within a layer.
  std::size_t camada(const MAXLOCAL& m) const;
  std::uint64_t celula(std::int64_t linha, std::int64_t coluna) const;
  std::uint32_t conteudo(std::size_t qualCamada, std::uint64_t n) const;

  std::int64_t lado = 1;
  std::int64_t maxDist = 0;
  std::int64_t l0 = 0;  // the list's top left corner
  std::int64_t c0 = 0;
  std::int64_t linhas = 0;  // of cells
  std::int64_t colunas = 0;
  std::array<std::int16_t, 256> camadaDaLetra{};  // -1: not in the list
  std::vector<PONTO> pontos;
  // For each layer, index + 1 of the point of each cell, 0 for none: in tables when they are not
  // much larger than the list, else by cell number.
  std::vector<std::vector<std::uint32_t>> tabelas;
  std::vector<std::unordered_map<std::uint64_t, std::uint32_t>> esparsas;
};
