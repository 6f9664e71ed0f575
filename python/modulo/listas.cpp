#include "listas.h"

namespace python {
namespace {

template <class REGISTRO>
vorplex::Detection deteccao(const REGISTRO& r) {
  return {r.correlation, r.shape[0], r.row, r.column, r.d1, r.d2, r.angle};
}

template <class MATRIZ>
std::vector<vorplex::Detection> deteccoesDe(const MATRIZ& a) {
  std::vector<vorplex::Detection> v;
  v.reserve(static_cast<std::size_t>(a.size()));
  for (py::ssize_t i = 0; i < a.size(); ++i) v.push_back(deteccao(a.data()[i]));
  return v;
}

DETECCAO registro(const vorplex::Detection& d) {
  return {d.correlation, {d.shape}, {}, d.row, d.column, d.d1, d.d2, d.angle};
}

APURADO registro(const vorplex::Refined& r) {
  const vorplex::Detection& d = r.detection;
  return {d.correlation, {d.shape},      {},         d.row,      d.column,
          d.d1,          d.d2,           d.angle,    r.support,  r.contrast,
          r.row_error,   r.column_error, r.d1_error, r.d2_error, r.angle_error};
}

KERNEL registro(const vorplex::Kernel& k) {
  return {{k.shape}, {}, k.d1, k.d2, k.angle, k.levels, {}};
}

template <class REGISTRO, class V>
py::array_t<REGISTRO, py::array::c_style> matrizDe(const V& v) {
  py::array_t<REGISTRO, py::array::c_style> a(static_cast<py::ssize_t>(v.size()));
  REGISTRO* r = a.mutable_data();
  for (const auto& x : v) *r++ = registro(x);
  return a;
}

}  // namespace

std::vector<vorplex::Detection> deteccoes(const DETECCOES& a) {
  return deteccoesDe(a);
}

std::vector<vorplex::Detection> deteccoes(const AMOSTRAS& a) {
  return deteccoesDe(a);
}

DETECCOES matriz(const std::vector<vorplex::Detection>& v) {
  return matrizDe<DETECCAO>(v);
}

py::array_t<APURADO> matriz(const std::vector<vorplex::Refined>& v) {
  return matrizDe<APURADO>(v);
}

py::array_t<KERNEL> matriz(const std::vector<vorplex::Kernel>& v) {
  return matrizDe<KERNEL>(v);
}

void registra(py::module_& m) {
  PYBIND11_NUMPY_DTYPE(DETECCAO, correlation, shape, row, column, d1, d2, angle);
  PYBIND11_NUMPY_DTYPE(APURADO, correlation, shape, row, column, d1, d2, angle, support, contrast,
                       row_error, column_error, d1_error, d2_error, angle_error);
  PYBIND11_NUMPY_DTYPE(GRAO, correlation, shape, row, column, d1, d2, angle, area, equivalent,
                       perimeter, lesser, greater, elongation, scale, unit, touches_border);
  PYBIND11_NUMPY_DTYPE(AMOSTRA, correlation, shape, row, column, d1, d2, angle, scale, d1_error,
                       d2_error, unit);
  PYBIND11_NUMPY_DTYPE(KERNEL, shape, d1, d2, angle, levels);
  m.attr("detection_dtype") = py::dtype::of<DETECCAO>();
  m.attr("refined_dtype") = py::dtype::of<APURADO>();
  m.attr("grain_dtype") = py::dtype::of<GRAO>();
  m.attr("sample_dtype") = py::dtype::of<AMOSTRA>();
}

}  // namespace python
