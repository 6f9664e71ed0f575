#pragma once

#include <pybind11/numpy.h>

#include <vector>

#include "vorplex/vorplex.h"

// Lists of records as numpy's structured arrays. The names of their fields are what users see;
// `vago`, which numpy is not told of, keeps the bytes between them at 0, so that equal arrays have
// equal bytes.

// NOLINTBEGIN(*-avoid-c-arrays): how numpy is told of texts

namespace python {

namespace py = pybind11;

struct DETECCAO {
  float correlation;
  char shape[1];
  char vago[3];
  double row, column, d1, d2, angle;
};

struct APURADO {
  float correlation;
  char shape[1];
  char vago[3];
  double row, column, d1, d2, angle;
  double support, contrast;
  double row_error, column_error, d1_error, d2_error, angle_error;
};

struct GRAO {
  float correlation;
  char shape[1];
  char vago[3];
  double row, column, d1, d2, angle;
  double area, equivalent, perimeter, lesser, greater, elongation;
  double scale;
  char unit[2];
  bool touches_border;
  char vago2[5];
};

// What intervals look at.
struct AMOSTRA {
  float correlation;
  char shape[1];
  char vago[3];
  double row, column, d1, d2, angle;
  double scale, d1_error, d2_error;
  char unit[2];
  char vago2[6];
};

struct KERNEL {
  char shape[1];
  char vago[7];
  double d1, d2, angle;
  int levels;
  char vago2[4];
};
// NOLINTEND(*-avoid-c-arrays)

using DETECCOES = py::array_t<DETECCAO, py::array::c_style>;
using AMOSTRAS = py::array_t<AMOSTRA, py::array::c_style>;
using GRAOS = py::array_t<GRAO, py::array::c_style>;

std::vector<vorplex::Detection> deteccoes(const DETECCOES& a);
std::vector<vorplex::Detection> deteccoes(const AMOSTRAS& a);
DETECCOES matriz(const std::vector<vorplex::Detection>& v);
py::array_t<APURADO> matriz(const std::vector<vorplex::Refined>& v);
py::array_t<KERNEL> matriz(const std::vector<vorplex::Kernel>& v);

// Tells numpy of the records, and the module of their types.
void registra(py::module_& m);

}  // namespace python
