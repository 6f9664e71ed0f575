#include "pim/codecs.h"

#include "pim/modulos.h"

namespace pim {

const CODECS& codecs() {
  static const CODECS& tabela = *static_cast<const CODECS*>(
      abreModulo("pimcodecs.so", "pimTabelaDeCodecs", "Erro: Modulo de imagens: "));
  return tabela;
}

}  // namespace pim
