#pragma once

#include <pybind11/numpy.h>

#include <cstdint>
#include <vector>

#include "vorplex/vorplex.h"

// Pictures in numpy's arrays, without copies. The package sees to it that the pixels of a row stand
// side by side and that rows follow each other downwards.

namespace python {

namespace py = pybind11;

vorplex::Extent extensao(py::ssize_t linhas, py::ssize_t colunas);

vorplex::Image imagem(const py::array_t<std::uint8_t>& a);
vorplex::FloatImage imagem(const py::array_t<float>& a);

// Of 8 or 16 bits or floats, with 1, 3 or 4 channels.
vorplex::Picture figura(const py::array& a);

// An array that owns the elements of `v`.
template <class T>
py::array_t<T> matriz(std::vector<T>&& v, std::vector<py::ssize_t> lados) {
  auto* dono = new std::vector<T>(std::move(v));  // the capsule's
  const py::capsule fim(dono, [](void* p) { delete static_cast<std::vector<T>*>(p); });
  return py::array_t<T>(std::move(lados), dono->data(), fim);
}

}  // namespace python
