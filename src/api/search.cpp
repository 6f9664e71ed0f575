#include "vorplex/search.h"

#include <cmath>
#include <exception>

#include "api/conjunto.h"
#include "api/registros.h"
#include "api/traduz.h"
#include "detect/procura.h"
#include "vorplex/error.h"

namespace vorplex {
namespace {

// The callback as the search knows it. What it throws is kept in `lancado` and ends the search.
detect::AVISO avisoDe(const ProgressCallback& progress, std::exception_ptr& lancado) {
  if (!progress) return {};
  return [&](const detect::ANDAMENTO& a) {
    try {
      return progress({a.grupo, a.nGrupos, a.nMaximos});
    } catch (...) {
      lancado = std::current_exception();
      return false;
    }
  };
}

template <class IMAGE>
std::vector<Detection> procuraEm(const IMAGE& image, const Kernels& kernels, double minCorr,
                                 const ProgressCallback& progress) {
  if (!std::isfinite(minCorr)) throw Error("minimum correlation that is not finite");
  std::exception_ptr lancado;
  try {
    return api::traduz([&] {
      const auto matriz = api::matriz(image);
      if (!kernels.set) return std::vector<Detection>{};
      return api::deteccoes(
          detect::procura(matriz, kernels.set->kernels, minCorr, avisoDe(progress, lancado)));
    });
  } catch (const Cancelled&) {
    if (lancado) std::rethrow_exception(lancado);
    throw;
  }
}

}  // namespace

std::vector<Detection> search(const Image& image, const Kernels& kernels, double min_correlation,
                              const ProgressCallback& progress) {
  return procuraEm(image, kernels, min_correlation, progress);
}

std::vector<Detection> search(const FloatImage& image, const Kernels& kernels,
                              double min_correlation, const ProgressCallback& progress) {
  return procuraEm(image, kernels, min_correlation, progress);
}

}  // namespace vorplex
