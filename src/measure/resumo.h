#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "measure/borda.h"
#include "measure/distribuicao.h"
#include "measure/escala.h"
#include "measure/grao.h"
#include "measure/incerteza/intervalo.h"
#include "measure/peneira.h"

namespace measure {

// A photograph and what was found in it.
struct FOTOGRAFIA {
  std::string nome;
  int rows = 0;
  int cols = 0;
  ESCALA escala;
  std::vector<GRAO> graos;
  METODO metodo = METODO::classico;  // by which all of them were measured
  BORDA borda = BORDA::inclui;       // how `graos` were weighted (ponderaBorda)
};

// The four shapes, in the order of all counts.
inline constexpr std::array<char, 4> letras = {'c', 'q', 'r', 'e'};

// The grains of one or several photographs put together, each measured by its own scale.
struct ACUMULADO {
  GRANDEZA grandeza = GRANDEZA::equivalente;
  PESO peso = PESO::numero;
  UNIDADE unidade = UNIDADE::px;  // that of all photographs
  std::size_t fotos = 0;
  std::array<std::size_t, letras.size()> porForma{};
  std::size_t naBorda = 0;  // grains that reach beyond their picture, also those that don't count
  double area = 0;          // of all photographs, in square units
  double quantos = 0;       // grains that their area stands for, and what they cover of it
  double coberta = 0;
  std::vector<MEDIDA> medidas;
};

// Adds a photograph. pim::erro naming it when its unit is not that of the photographs before it.
void acumula(ACUMULADO& a, const FOTOGRAFIA& foto);

// What is said of one photograph, or of several together. Lengths are in `unidade`, areas in its
// square, densities in grains per square unit.
struct RESUMO {
  GRANDEZA grandeza = GRANDEZA::equivalente;
  PESO peso = PESO::numero;
  UNIDADE unidade = UNIDADE::px;
  std::size_t fotos = 0;
  std::size_t graos = 0;  // that count
  std::array<std::size_t, letras.size()> porForma{};
  std::size_t naBorda = 0;
  double area = 0;
  std::optional<double> densidade;  // grains by area; empty when there is no area
  std::optional<double> cobertura;  // the part of the area that grains cover
  DISTRIBUICAO distribuicao;
  std::vector<PENEIRA> peneiras;
  INTERVALOS intervalos;  // of distribution and sieves
};

// `aberturas` as in measure/peneira.h, in the unit of the photographs.
RESUMO resume(const ACUMULADO& a, const std::vector<double>& aberturas = {});

// One photograph alone.
RESUMO resume(const FOTOGRAFIA& foto, GRANDEZA grandeza, PESO peso,
              const std::vector<double>& aberturas = {});

}  // namespace measure
