#include "refine/tracos/pesos.h"

#include <algorithm>

#include "refine/contorno/numeros.h"

namespace refine {

const PESOS& pesosAprendidos() {
  static constexpr PESOS pesos = {
#include "refine/tracos/pesos.inc"
  };
  return pesos;
}

double probabilidade(double nota) {
  return 1 / (1 + exponencial(std::clamp(-nota, -500.0, 500.0)));
}

}  // namespace refine
