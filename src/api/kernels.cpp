#include "vorplex/kernels.h"

#include <algorithm>
#include <utility>

#include "api/conjunto.h"
#include "api/traduz.h"
#include "kernels/lekernels.h"

namespace vorplex {

Kernels kernels_from_text(std::string_view text, const std::string& name) {
  return api::traduz([&] {
    KernelSet set;
    kernels::leKernelsDoTexto(text, name, set.kernels, IMAGENS::nenhuma);
    return Kernels{std::make_shared<const KernelSet>(std::move(set))};
  });
}

Kernels kernels_from_file(const std::string& path) {
  return api::traduz([&] {
    KernelSet set;
    leKernels(path, set.kernels, IMAGENS::nenhuma);
    return Kernels{std::make_shared<const KernelSet>(std::move(set))};
  });
}

std::vector<Kernel> list_kernels(const Kernels& kernels) {
  std::vector<Kernel> lista;
  if (!kernels.set) return lista;
  for (const MASCARA& m : kernels.set->kernels) {
    lista.push_back({m.forma, m.d1, m.d2, m.ang, std::max(m.sPir + 1, 0)});
  }
  return lista;
}

}  // namespace vorplex
