#pragma once

#include "listas.h"

namespace python {

// Grains of detections in a picture of `linhas` by `colunas`, in the unit of `escala` ("0.05mm"; in
// pixels when it is empty).
GRAOS mede(const DETECCOES& d, py::ssize_t linhas, py::ssize_t colunas, const std::string& escala);

// The distribution of the grains as a dictionary by the names of its values; None where a value
// can't be said.
py::dict distribui(const GRAOS& g, vorplex::Size grandeza, vorplex::Weight peso);

}  // namespace python
