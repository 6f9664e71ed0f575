#include "vorplex/measure.h"

#include <cmath>

#include "api/registros.h"
#include "api/traduz.h"
#include "measure/distribuicao.h"
#include "measure/escala.h"
#include "measure/grao.h"
#include "measure/incerteza/intervalo.h"
#include "vorplex/error.h"

namespace vorplex {
namespace {

Grain grao(const ::measure::GRAO& g, const Detection& d) {
  return {d,       g.area,        g.equivalente, g.perimetro, g.menor,
          g.maior, g.alongamento, g.tocaBorda,   0,           0};
}

bool temErro(double x) {
  if (!(x >= 0) || !std::isfinite(x)) throw Error("standard error out of range");
  return x > 0;
}

// With what a distribution looks at.
::measure::GRAO graoDe(const Grain& g) {
  const auto positivo = [](double x) { return std::isfinite(x) && x > 0; };
  if (!positivo(g.equivalent) || !positivo(g.lesser) || !positivo(g.greater) || !positivo(g.area)) {
    throw Error("grain without a size");
  }
  ::measure::GRAO saida;
  saida.area = g.area;
  saida.equivalente = g.equivalent;
  saida.menor = g.lesser;
  saida.maior = g.greater;
  if (!temErro(g.d1_error) && !temErro(g.d2_error)) return saida;
  const Detection& d = g.detection;
  const bool umTamanho = d.shape == 'c' || d.shape == 'q';
  if (!positivo(d.d1) || !(umTamanho || positivo(d.d2)))
    throw Error("grain with errors of sizes, but without sizes");
  saida.figura = {d.shape, d.row, d.column, d.d1, d.d2, d.angle};
  saida.medido = {{0, 0, {0, 0, g.d1_error, g.d2_error, 0}}};
  return saida;
}

// How grains are put into a distribution.
struct MODO_DE_MEDIR {
  Size size;
  Weight weight;
  std::size_t foto;  // that they are of
};

void acrescenta(std::vector<::measure::MEDIDA>& v, const std::vector<Grain>& grains,
                const ::measure::ESCALA& e, const MODO_DE_MEDIR& modo) {
  v.reserve(v.size() + grains.size());
  for (const Grain& g : grains) {
    v.push_back(::measure::medida(graoDe(g), e, static_cast<::measure::GRANDEZA>(modo.size),
                                  static_cast<::measure::PESO>(modo.weight)));
    v.back().foto = modo.foto;
  }
}

// The enumerations of both sides have the same values in the same order.
::measure::ESCALA escala(const Scale& s) {
  if (!(s.side >= 1e-9 && s.side <= 1e9)) throw Error("scale out of range");
  if (s.unit == Unit::px && s.side != 1) throw Error("a scale needs a unit");
  return {s.side, static_cast<::measure::UNIDADE>(s.unit)};
}

Distribution distribuicao(const ::measure::DISTRIBUICAO& d) {
  Distribution s;
  s.grains = d.graos;
  const auto p = [&d](int porcento) { return ::measure::valorD(d, porcento); };
  s.d5 = p(5), s.d10 = p(10), s.d16 = p(16), s.d25 = p(25), s.d30 = p(30), s.d50 = p(50);
  s.d60 = p(60), s.d75 = p(75), s.d84 = p(84), s.d90 = p(90), s.d95 = p(95);
  s.mean = d.media;
  s.deviation = d.desvio;
  s.phi_mean = d.mediaPhi;
  s.sorting = d.selecao;
  s.skewness = d.assimetria;
  s.kurtosis = d.curtose;
  s.uniformity = d.uniformidade;
  s.curvature = d.curvatura;
  return s;
}

}  // namespace

std::vector<Grain> measure(const Extent& picture, const std::vector<Detection>& detections) {
  return api::traduz([&] {
    const cv::Size lados = api::tamanho(picture);
    std::vector<::refine::APURADO> figuras(detections.size());
    for (std::size_t i = 0; i < figuras.size(); ++i) {
      const Detection& d = detections[i];
      figuras[i].figura = {d.shape, d.row, d.column, d.d1, d.d2, d.angle};
      figuras[i].correl = d.correlation;
    }
    std::vector<Grain> graos;
    graos.reserve(figuras.size());
    for (const ::measure::GRAO& g : ::measure::medeApurados(figuras, lados.height, lados.width)) {
      graos.push_back(grao(g, detections[g.indice]));
    }
    return graos;
  });
}

std::vector<Grain> measure_refined(const Extent& picture, const std::vector<Refined>& grains) {
  std::vector<Detection> detections;
  detections.reserve(grains.size());
  for (const Refined& r : grains) detections.push_back(r.detection);
  std::vector<Grain> medidos = measure(picture, detections);
  for (std::size_t i = 0; i < medidos.size(); ++i) {
    medidos[i].d1_error = grains[i].d1_error;
    medidos[i].d2_error = grains[i].d2_error;
  }
  return medidos;
}

Scale parse_scale(const std::string& text) {
  return api::traduz([&] {
    const ::measure::ESCALA e = ::measure::leEscala(text);
    return Scale{e.lado, static_cast<Unit>(e.unidade)};
  });
}

Distribution distribution(const std::vector<Grain>& grains, const Scale& scale, Size size,
                          Weight weight) {
  return api::traduz([&] {
    const ::measure::ESCALA e = escala(scale);
    std::vector<::measure::MEDIDA> medidas;
    acrescenta(medidas, grains, e, {size, weight, 0});
    return distribuicao(::measure::distribui(::measure::curva(std::move(medidas)), e.unidade));
  });
}

Intervals intervals(const std::vector<Sample>& pictures, Size size, Weight weight) {
  return api::traduz([&] {
    const Unit unit = pictures.empty() ? Unit::px : pictures.front().scale.unit;
    std::vector<::measure::MEDIDA> medidas;
    std::size_t foto = 0;
    for (const Sample& s : pictures) {
      if (s.scale.unit != unit) throw Error("pictures in different units");
      acrescenta(medidas, s.grains, escala(s.scale), {size, weight, ++foto});
    }
    const ::measure::INTERVALOS i =
        ::measure::intervalos(medidas, static_cast<::measure::UNIDADE>(unit));
    return Intervals{distribuicao(i.de), distribuicao(i.ate), i.fotos};
  });
}

}  // namespace vorplex
