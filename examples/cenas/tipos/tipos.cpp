#include "examples/cenas/tipos/tipos.h"

namespace cenas {

const TIPO* tipo(std::string_view nome) {
  for (const std::span<const TIPO> lista : {treino(), reservados()}) {
    for (const TIPO& t : lista) {
      if (t.nome == nome) return &t;
    }
  }
  return nullptr;
}

}  // namespace cenas
