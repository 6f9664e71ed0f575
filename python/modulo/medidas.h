#pragma once

#include "listas.h"

namespace python {

// Grains of detections in a picture of `linhas` by `colunas`, in the unit of `escala` ("0.05mm"; in
// pixels when it is empty).
GRAOS mede(const DETECCOES& d, py::ssize_t linhas, py::ssize_t colunas, const std::string& escala);

// The distribution of the grains as a dictionary by the names of its values; None where a value
// can't be said.
py::dict distribui(const GRAOS& g, vorplex::Size grandeza, vorplex::Weight peso);

// The intervals of the distribution of the grains of several pictures: "low" and "high" as above,
// and "pictures", the number of those with grains.
py::dict intervala(const std::vector<AMOSTRAS>& fotos, vorplex::Size grandeza,
                   vorplex::Weight peso);

}  // namespace python
