#include "aviso.h"

namespace python {

bool AVISO::operator()(const vorplex::Progress& p) {
  constexpr std::chrono::milliseconds intervalo(50);
  const bool fim = p.groups_done == p.groups && !acabou;
  acabou |= fim;
  const auto agora = RELOGIO::now();
  if (!fim && agora < proxima) return true;
  proxima = agora + intervalo;
  const py::gil_scoped_acquire interpretador;
  if (PyErr_CheckSignals() != 0) throw py::error_already_set();
  if (progresso.is_none()) return true;
  return !progresso(p.groups_done, p.groups, p.found).is(py::bool_(false));
}

}  // namespace python
