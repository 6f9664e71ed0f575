#pragma once

#include <pybind11/pybind11.h>

#include <chrono>

#include "vorplex/vorplex.h"

namespace python {

namespace py = pybind11;

// What a search calls while another thread may have the interpreter: every twentieth of a second it
// takes it, sees to signals such as that of Ctrl-C, and calls `progresso`, if there is one; and it
// calls it once more at the end. What those throw ends the search, as does False.
struct AVISO {
  using RELOGIO = std::chrono::steady_clock;

  const py::object& progresso;  // a function of three numbers, or None
  RELOGIO::time_point proxima = RELOGIO::now();
  bool acabou = false;

  bool operator()(const vorplex::Progress& p);
};

}  // namespace python
