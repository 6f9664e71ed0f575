#include "vorplex/detection.h"

#include <cmath>
#include <string_view>

#include "api/registros.h"
#include "api/traduz.h"
#include "detect/maxlocal.h"
#include "vorplex/error.h"

namespace vorplex {
namespace {

void exigeLegivel(const Detection& d) {
  const bool forma = d.shape != 0 && std::string_view("cqre").find(d.shape) != std::string::npos;
  const bool finita = std::isfinite(d.correlation) && std::isfinite(d.row) &&
                      std::isfinite(d.column) && std::isfinite(d.d1) && std::isfinite(d.d2) &&
                      std::isfinite(d.angle);
  if (!forma || !finita) throw Error("detection of no shape, or with numbers that are not finite");
}

}  // namespace

std::vector<Detection> read_ho(const std::string& path) {
  return api::traduz([&] {
    std::vector<MAXLOCAL> v;
    leMaxLocais(v, path);
    return api::deteccoes(v);
  });
}

void write_ho(const std::vector<Detection>& detections, const std::string& path) {
  for (const Detection& d : detections) exigeLegivel(d);
  api::traduz([&] { impMaxLocais(api::maxLocais(detections), path); });
}

}  // namespace vorplex
