#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

#include "detect/maxlocal.h"
#include "refine/apura.h"

namespace measure {

// How the grains of a picture are measured: as the search found them, at whole pixels and in the
// sizes of its kernels, or fitted to the edges of the picture (refine/apura.h).
enum class METODO { classico, apurado };

// What the fit tells of a grain, beside its shape.
struct MEDIDO {
  double apoio = 0;              // probability that it is a grain
  double contraste = 0;          // mean grey around it less mean grey inside, 0 to 1
  std::array<double, 5> erro{};  // standard errors of row, column, d1, d2 (pixels), angle (degrees)
};

// One measured grain. Lengths are in pixels, areas in square pixels, all from the nominal sizes of
// the shape and not from the pixels that a drawing of it covers.
struct GRAO {
  std::size_t indice = 0;        // its place in the list, from 0, as traca writes it on the picture
  refine::FIGURA figura;         // letter, centre, sizes and angle
  float correl = 0;              // of the detection
  std::optional<MEDIDO> medido;  // when it was fitted
  double area = 0;         // circle pi d1^2 / 4, square d1^2, rectangle d1 d2, ellipse pi d1 d2 / 4
  double equivalente = 0;  // diameter of the circle of equal area, sqrt(4 area / pi)
  double perimetro = 0;    // exact (measure/perimetro.h for the ellipse)
  double menor = 0;        // lesser side or axis; the size that a sieve sees
  double maior = 0;        // greater side or axis
  double alongamento = 1;  // maior / menor, at least 1
  bool tocaBorda = false;  // its outline reaches beyond the outermost pixels of the picture
  // How many times it counts, and how many grains like it there are for each that the border leaves
  // whole (measure/borda.h): 0 for one that is cut or that nothing is said of.
  double vezes = 1;
  double inteiro = 0;
};

// Sizes that can be measured, in pixels: what a list can hold, and no shape is larger than a
// picture.
inline constexpr double menorTamanho = 1e-5;
inline constexpr double maiorTamanho = 1e6;

// Whether the record is a shape with an extent: one of the four letters, every number finite, and
// the sizes that its letter uses from `menorTamanho` to `maiorTamanho`.
bool mensuravel(const MAXLOCAL& m);

// Measures one detection of a picture of rows by cols pixels. pim::erro "Erro: Forma sem medida"
// with index, letter and sizes when it is not `mensuravel`.
GRAO mede(const MAXLOCAL& m, std::size_t indice, int rows, int cols);

// Measures a whole list, in its order.
std::vector<GRAO> medeTodos(const std::vector<MAXLOCAL>& v, int rows, int cols);

// Measures a list of fitted grains, in its order. Row, column, sizes and angle keep two digits of
// their standard error: what comes after says nothing.
std::vector<GRAO> medeApurados(const std::vector<refine::APURADO>& v, int rows, int cols);

// The grain as a record of a list, its row and column rounded.
MAXLOCAL registro(const GRAO& g);

}  // namespace measure
