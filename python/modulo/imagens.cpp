#include "imagens.h"

#include <algorithm>
#include <limits>

namespace python {
namespace {

// What no int can hold becomes the largest, which no picture may have either.
int lado(py::ssize_t n) {
  return static_cast<int>(std::min<py::ssize_t>(n, std::numeric_limits<int>::max()));
}

// Nothing depends on the step of a single row, which numpy leaves open.
std::ptrdiff_t passo(const py::array& a) {
  return a.shape(0) > 1 && a.size() > 0 ? a.strides(0) : 0;
}

vorplex::Depth profundidade(const py::array& a) {
  if (a.itemsize() == 1) return vorplex::Depth::bytes;
  return a.itemsize() == 2 ? vorplex::Depth::words : vorplex::Depth::floats;
}

}  // namespace

vorplex::Extent extensao(py::ssize_t linhas, py::ssize_t colunas) {
  return {lado(linhas), lado(colunas)};
}

vorplex::Image imagem(const py::array_t<std::uint8_t>& a) {
  return {a.data(), extensao(a.shape(0), a.shape(1)), passo(a)};
}

vorplex::FloatImage imagem(const py::array_t<float>& a) {
  return {a.data(), extensao(a.shape(0), a.shape(1)), passo(a)};
}

vorplex::Picture figura(const py::array& a) {
  const int canais = a.ndim() == 2 ? 1 : lado(a.shape(2));
  return {a.data(), extensao(a.shape(0), a.shape(1)), canais, profundidade(a), passo(a)};
}

}  // namespace python
