#pragma once

#include <vector>

#include "refine/ajuste/perfil.h"

namespace referencia {

// refine::procuraBordas one sample and one point at a time, the greatest slope alone: `nitidez`,
// `primeira` and `junta` must be 0.
void procuraBordas(const refine::ANDAR& andar, const std::vector<refine::AMOSTRA>& amostras,
                   refine::ALCANCE como, std::vector<refine::BORDA>& bordas);

}  // namespace referencia
