#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "aviso.h"
#include "imagens.h"
#include "listas.h"
#include "livre.h"
#include "medidas.h"
#include "vorplex/vorplex.h"

// The functions of the module as Python calls them. The package around it has their documentation,
// and gives them what they expect.

namespace {

using namespace python;

// Names of files come as bytes, which need not be UTF-8; neither need the errors that tell of them.
PyObject* texto(std::string_view bytes) {
  return PyUnicode_DecodeUTF8(bytes.data(), static_cast<py::ssize_t>(bytes.size()),
                              "surrogateescape");
}

void lancaEmPython(const py::object& tipo, const std::exception& e) {
  const auto mensagem = py::reinterpret_steal<py::object>(texto(e.what()));
  if (mensagem) PyErr_SetObject(tipo.ptr(), mensagem.ptr());
}

// Errors live as long as the process.
void registraErros(py::module_& m) {
  static const py::exception<vorplex::Error> erro(m, "Error", PyExc_RuntimeError);
  static const py::exception<vorplex::Cancelled> cancelada(m, "Cancelled", erro.ptr());
  // NOLINTNEXTLINE(*-unnecessary-value-param): the type is given
  py::register_exception_translator([](std::exception_ptr p) {
    try {
      if (p) std::rethrow_exception(p);
    } catch (const vorplex::Cancelled& e) {
      lancaEmPython(cancelada, e);
    } catch (const vorplex::Error& e) {
      lancaEmPython(erro, e);
    }
  });
}

template <class IMAGEM>
DETECCOES procura(const IMAGEM& a, const vorplex::Kernels& kernels, double minCorr,
                  const py::object& progresso, bool avisa) {
  AVISO aviso{progresso};
  vorplex::ProgressCallback chama;
  if (avisa) chama = [&aviso](const vorplex::Progress& p) { return aviso(p); };
  const auto img = imagem(a);
  return matriz(semInterpretador([&] { return vorplex::search(img, kernels, minCorr, chama); }));
}

using LIMIAR = std::pair<double, double>;

vorplex::Threshold limiar(const LIMIAR& l) {
  return {l.first, l.second};
}

DETECCOES filtra(py::ssize_t linhas, py::ssize_t colunas, const DETECCOES& d,
                 const std::array<LIMIAR, 4>& l) {
  const vorplex::Thresholds limiares = {limiar(l[0]), limiar(l[1]), limiar(l[2]), limiar(l[3])};
  const std::vector<vorplex::Detection> entrada = deteccoes(d);
  return matriz(semInterpretador(
      [&] { return vorplex::filter(extensao(linhas, colunas), entrada, limiares); }));
}

py::array_t<APURADO> apura(const py::array_t<std::uint8_t>& a, const DETECCOES& d,
                           const vorplex::RefineOptions& opcoes, bool avisa) {
  const py::none ninguem;
  AVISO aviso{ninguem};
  std::function<bool()> segue;
  if (avisa) segue = [&aviso] { return aviso({0, 1, 0}); };
  const vorplex::Image img = imagem(a);
  const std::vector<vorplex::Detection> entrada = deteccoes(d);
  return matriz(semInterpretador([&] { return vorplex::refine(img, entrada, opcoes, segue); }));
}

py::dict sugere(const std::vector<py::array_t<std::uint8_t>>& fotos, std::optional<bool> claros,
                const std::string& formas, std::size_t amostra, int fios) {
  std::vector<vorplex::Image> imagens;
  imagens.reserve(fotos.size());
  for (const auto& a : fotos) imagens.push_back(imagem(a));
  const vorplex::Suggestion s = semInterpretador([&] {
    return vorplex::suggest(imagens, {claros, formas, amostra, true, fios});
  });
  using namespace py::literals;
  return py::dict("text"_a = s.text, "bright"_a = s.bright, "min_corr"_a = s.min_correlation,
                  "shapes"_a = s.shapes, "min_size"_a = s.min_size, "max_size"_a = s.max_size,
                  "share"_a = s.share, "both"_a = s.both, "found"_a = s.found);
}

py::array_t<std::uint8_t> cinza(const py::array& a) {
  const vorplex::Picture p = figura(a);
  return matriz(semInterpretador([&] { return vorplex::grey(p); }), {a.shape(0), a.shape(1)});
}

py::array_t<std::uint8_t> desenha(const py::array& a, const DETECCOES& d, vorplex::Outline contorno,
                                  bool indices, vorplex::Centre centro) {
  const vorplex::Picture p = figura(a);
  const std::vector<vorplex::Detection> v = deteccoes(d);
  return matriz(semInterpretador([&] {
                  return vorplex::draw(p, v, {contorno, indices, centro});
                }),
                {a.shape(0), a.shape(1), 3});
}

py::array_t<std::int32_t> rotula(py::ssize_t linhas, py::ssize_t colunas, const DETECCOES& d) {
  const std::vector<vorplex::Detection> v = deteccoes(d);
  return matriz(semInterpretador([&] { return vorplex::labels(extensao(linhas, colunas), v); }),
                {linhas, colunas});
}

void registraKernels(py::module_& m) {
  py::class_<vorplex::Kernels>(m, "Kernels",
                               R"(A set of kernels: the shapes that a search looks for.

Made by `vorplex.kernels`; it never changes. Its length is the number of kernels.)")
      .def("__len__", [](const vorplex::Kernels& k) { return vorplex::list_kernels(k).size(); })
      .def_property_readonly(
          "table", [](const vorplex::Kernels& k) { return matriz(vorplex::list_kernels(k)); },
          R"(All kernels of the set, in their order, as a structured array.

Its fields are `shape`, `d1`, `d2` (pixels), `angle` (degrees) and `levels`: 1 for a kernel that is
searched in the picture as it is, and one more for each picture of half the size before in which
it is searched too, where it finds shapes of twice the size; 0 for one that is not searched.)")
      .def("__repr__", [](const vorplex::Kernels& k) {
        return "<vorplex.Kernels: " + std::to_string(vorplex::list_kernels(k).size()) + ">";
      });
  m.def("kernels_from_text", [](const std::string& texto) {
    return semInterpretador([&] { return vorplex::kernels_from_text(texto); });
  });
  m.def("kernels_from_file", [](const py::bytes& nome) {
    const std::string arquivo(nome);
    return semInterpretador([&] { return vorplex::kernels_from_file(arquivo); });
  });
}

void registraOpcoes(py::module_& m) {
  py::class_<vorplex::RefineOptions>(m, "RefineOptions")
      .def(py::init<>())
      .def_readwrite("shapes", &vorplex::RefineOptions::shapes)
      .def_readwrite("min_size", &vorplex::RefineOptions::min_size)
      .def_readwrite("max_size", &vorplex::RefineOptions::max_size)
      .def_readwrite("max_overlap", &vorplex::RefineOptions::max_overlap)
      .def_readwrite("sensitivity", &vorplex::RefineOptions::sensitivity)
      .def_readwrite("keep_shapes", &vorplex::RefineOptions::keep_shapes)
      .def_readwrite("threads", &vorplex::RefineOptions::threads);
  py::enum_<vorplex::Size>(m, "Size")
      .value("equivalent", vorplex::Size::equivalent)
      .value("lesser", vorplex::Size::lesser)
      .value("greater", vorplex::Size::greater);
  py::enum_<vorplex::Weight>(m, "Weight")
      .value("number", vorplex::Weight::number)
      .value("area", vorplex::Weight::area)
      .value("volume", vorplex::Weight::volume);
}

void registraDesenho(py::module_& m) {
  py::enum_<vorplex::Outline>(m, "Outline")
      .value("exact", vorplex::Outline::exact)
      .value("thin", vorplex::Outline::thin)
      .value("bold", vorplex::Outline::bold);
  py::enum_<vorplex::Centre>(m, "Centre")
      .value("none", vorplex::Centre::none)
      .value("thin", vorplex::Centre::thin)
      .value("bold", vorplex::Centre::bold);
  m.def("draw", desenha);
  m.def("labels", rotula);
}

void registraListas(py::module_& m) {
  m.def("read_ho", [](const py::bytes& nome) {
    const std::string arquivo(nome);
    return matriz(semInterpretador([&] { return vorplex::read_ho(arquivo); }));
  });
  m.def("write_ho", [](const py::bytes& nome, const DETECCOES& d) {
    const std::string arquivo(nome);
    const std::vector<vorplex::Detection> v = deteccoes(d);
    semInterpretador([&] { vorplex::write_ho(v, arquivo); });
  });
}

}  // namespace

PYBIND11_MODULE(_vorplex, m) {
  m.doc() = "What the package vorplex is made of.";
  m.attr("version") = VORPLEX_VERSAO;
  registraErros(m);
  registra(m);
  registraKernels(m);
  registraOpcoes(m);
  registraListas(m);
  registraDesenho(m);
  m.def("grey", cinza);
  m.def("search", procura<py::array_t<std::uint8_t>>);
  m.def("search_floats", procura<py::array_t<float>>);
  m.def("suggest", sugere);
  m.def("filter", filtra);
  m.def("refine", apura);
  m.def("measure", mede);
  m.def("distribution", distribui);
  m.def("intervals", intervala);
}
