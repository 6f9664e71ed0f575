#include "medidas.h"

#include <pybind11/stl.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "imagens.h"
#include "livre.h"

namespace python {
namespace {

using vorplex::Unit;

constexpr std::array<std::pair<Unit, std::string_view>, 6> unidades = {{{Unit::px, "px"},
                                                                        {Unit::um, "um"},
                                                                        {Unit::mm, "mm"},
                                                                        {Unit::cm, "cm"},
                                                                        {Unit::m, "m"},
                                                                        {Unit::in, "in"}}};

template <class REGISTRO>
std::string_view nome(const REGISTRO& g) {
  const std::string_view dois(&g.unit[0], sizeof g.unit);
  return dois.substr(0, dois.find('\0'));
}

// The scale in which lengths of that unit are what they are.
vorplex::Scale propria(std::string_view unidade) {
  for (const auto& [u, n] : unidades) {
    if (n == unidade) return {1, u};
  }
  throw vorplex::Error("unknown unit " + std::string(unidade));
}

// The grains of a picture with what they are measured by, in pixels.
vorplex::Sample amostra(const AMOSTRAS& a) {
  vorplex::Sample s = {vorplex::measure({}, deteccoes(a)), {}};
  if (a.size() == 0) return s;
  const AMOSTRA& primeira = *a.data();
  for (std::size_t i = 0; i < s.grains.size(); ++i) {
    const AMOSTRA& r = a.data()[i];
    if (nome(r) != nome(primeira) || r.scale != primeira.scale) {
      throw vorplex::Error("grains of different scales in one picture");
    }
    s.grains[i].d1_error = r.d1_error;
    s.grains[i].d2_error = r.d2_error;
  }
  s.scale = {primeira.scale, propria(nome(primeira)).unit};
  return s;
}

vorplex::Scale unidadeDe(const GRAOS& g) {
  if (g.size() == 0) return {};
  const std::string_view primeira = nome(*g.data());
  const bool todas = std::all_of(g.data(), g.data() + g.size(),
                                 [&](const GRAO& r) { return nome(r) == primeira; });
  if (!todas) throw vorplex::Error("grains of different units");
  return propria(primeira);
}

GRAO registro(const vorplex::Grain& g, const vorplex::Scale& e) {
  const vorplex::Detection& d = g.detection;
  const double k = e.side;
  GRAO r = {d.correlation,
            {d.shape},
            {},
            d.row,
            d.column,
            d.d1,
            d.d2,
            d.angle,
            g.area * (k * k),
            g.equivalent * k,
            g.perimeter * k,
            g.lesser * k,
            g.greater * k,
            g.elongation,
            k,
            {},
            g.touches_border,
            {}};
  const std::string_view unidade = unidades.at(static_cast<std::size_t>(e.unit)).second;
  std::copy(unidade.begin(), unidade.end(), &r.unit[0]);
  return r;
}

// With what a distribution looks at.
vorplex::Grain grao(const GRAO& r) {
  vorplex::Grain g;
  g.area = r.area;
  g.equivalent = r.equivalent;
  g.lesser = r.lesser;
  g.greater = r.greater;
  return g;
}

py::dict dicionario(const vorplex::Distribution& d) {
  using namespace py::literals;
  return py::dict("grains"_a = d.grains, "d5"_a = d.d5, "d10"_a = d.d10, "d16"_a = d.d16,
                  "d25"_a = d.d25, "d30"_a = d.d30, "d50"_a = d.d50, "d60"_a = d.d60,
                  "d75"_a = d.d75, "d84"_a = d.d84, "d90"_a = d.d90, "d95"_a = d.d95,
                  "mean"_a = d.mean, "deviation"_a = d.deviation, "phi_mean"_a = d.phi_mean,
                  "sorting"_a = d.sorting, "skewness"_a = d.skewness, "kurtosis"_a = d.kurtosis,
                  "uniformity"_a = d.uniformity, "curvature"_a = d.curvature);
}

}  // namespace

GRAOS mede(const DETECCOES& d, py::ssize_t linhas, py::ssize_t colunas, const std::string& escala) {
  const vorplex::Scale e = escala.empty() ? vorplex::Scale{} : vorplex::parse_scale(escala);
  const auto graos = vorplex::measure(extensao(linhas, colunas), deteccoes(d));
  GRAOS saida(static_cast<py::ssize_t>(graos.size()));
  std::transform(graos.begin(), graos.end(), saida.mutable_data(),
                 [&e](const vorplex::Grain& g) { return registro(g, e); });
  return saida;
}

py::dict distribui(const GRAOS& g, vorplex::Size grandeza, vorplex::Weight peso) {
  const vorplex::Scale e = unidadeDe(g);
  std::vector<vorplex::Grain> graos;
  graos.reserve(static_cast<std::size_t>(g.size()));
  std::transform(g.data(), g.data() + g.size(), std::back_inserter(graos), grao);
  return dicionario(
      semInterpretador([&] { return vorplex::distribution(graos, e, grandeza, peso); }));
}

py::dict intervala(const std::vector<AMOSTRAS>& fotos, vorplex::Size grandeza,
                   vorplex::Weight peso) {
  std::vector<vorplex::Sample> amostras;
  amostras.reserve(fotos.size());
  for (const AMOSTRAS& a : fotos) {
    // A picture without grains has no unit either.
    if (a.size() > 0) amostras.push_back(amostra(a));
  }
  const vorplex::Intervals i =
      semInterpretador([&] { return vorplex::intervals(amostras, grandeza, peso); });
  using namespace py::literals;
  return py::dict("low"_a = dicionario(i.low), "high"_a = dicionario(i.high),
                  "pictures"_a = i.pictures);
}

}  // namespace python
