#pragma once

#include <pybind11/pybind11.h>

namespace python {

// What `trabalho` returns, other threads having the interpreter meanwhile.
template <class TRABALHO>
auto semInterpretador(TRABALHO trabalho) {
  const pybind11::gil_scoped_release livre;
  return trabalho();
}

}  // namespace python
