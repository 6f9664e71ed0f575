#include "pim/codecs.h"

#include <dlfcn.h>

#include "pim/erro.h"

namespace pim {
namespace {

// The module stays open to the end of the process: the images that it makes may outlive any call.
const CODECS& abreModulo() {
  void* modulo = dlopen("pimcodecs.so", RTLD_NOW | RTLD_LOCAL);
  const void* tabela = modulo != nullptr ? dlsym(modulo, "pimTabelaDeCodecs") : nullptr;
  if (tabela == nullptr) erro("Erro: Modulo de imagens: ", dlerror());
  return *static_cast<const CODECS*>(tabela);
}

}  // namespace

const CODECS& codecs() {
  static const CODECS& tabela = abreModulo();
  return tabela;
}

}  // namespace pim
