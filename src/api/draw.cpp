#include "vorplex/draw.h"

#include <cstddef>
#include <opencv2/imgproc.hpp>

#include "api/registros.h"
#include "api/traduz.h"
#include "draw/formas.h"
#include "estampa/contornos.h"
#include "estampa/rotulos.h"
#include "measure/grao.h"

namespace vorplex {
namespace {

std::vector<::measure::GRAO> graos(const Extent& e, const std::vector<Detection>& detections) {
  std::vector<::refine::APURADO> figuras;
  figuras.reserve(detections.size());
  for (const Detection& d : detections) {
    figuras.push_back({{d.shape, d.row, d.column, d.d1, d.d2, d.angle}, d.correlation, 0, 0, {}});
  }
  return ::measure::medeApurados(figuras, e.rows, e.columns);
}

void desenhaExatos(cv::Mat_<pim::VEC3B>& cores, const std::vector<Detection>& detections,
                   const DrawOptions& o) {
  const std::vector<::measure::GRAO> v = graos({cores.rows, cores.cols}, detections);
  estampa::desenhaContornos(cores, v);
  if (o.indices) estampa::desenhaIndices(cores, v);
}

void traca(cv::Mat_<pim::VEC3B>& cores, const std::vector<MAXLOCAL>& v, const DrawOptions& o) {
  for (std::size_t k = 0; k < v.size(); ++k) exigeDesenhavel(v[k], "", k);
  cores = tracaFormas(cores, v, o.outline == Outline::bold, pim::VEC3B(0, 0, 255));
  if (o.indices) cores = tracaIndices(cores, v);
}

}  // namespace

std::vector<std::uint8_t> draw(const Picture& picture, const std::vector<Detection>& detections,
                               const DrawOptions& options) {
  std::vector<std::uint8_t> saida = rgb(picture);
  return api::traduz([&] {
    if (saida.empty()) return saida;
    const cv::Mat vista(api::tamanho(picture.extent), CV_8UC3, saida.data());
    cv::Mat_<pim::VEC3B> cores;
    cv::cvtColor(vista, cores, cv::COLOR_RGB2BGR);
    const std::vector<MAXLOCAL> v = api::maxLocais(detections);
    if (options.outline == Outline::exact) {
      desenhaExatos(cores, detections, options);
    } else {
      traca(cores, v, options);
    }
    if (options.centre != Centre::none) {
      cores = tracaCentros(cores, v, options.centre == Centre::bold);
    }
    cv::cvtColor(cores, vista, cv::COLOR_BGR2RGB);
    return saida;
  });
}

std::vector<std::int32_t> labels(const Extent& picture, const std::vector<Detection>& detections) {
  return api::traduz([&] {
    const cv::Size lados = api::tamanho(picture);
    std::vector<::refine::FIGURA> figuras;
    for (const ::measure::GRAO& g : graos(picture, detections)) {
      figuras.push_back(g.figura);
      const bool umTamanho = g.figura.forma == 'c' || g.figura.forma == 'q';
      if (umTamanho) figuras.back().d2 = g.figura.d1;
    }
    if (lados.empty()) return std::vector<std::int32_t>();
    const cv::Mat_<int> img = estampa::rotulos(lados, figuras);
    return std::vector<std::int32_t>(img.begin(), img.end());
  });
}

}  // namespace vorplex
