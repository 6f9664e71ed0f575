#include "pim/codecs.h"

#include <dlfcn.h>

#include <filesystem>
#include <string>

#include "pim/erro.h"

namespace pim {
namespace {

namespace fs = std::filesystem;

// Named in full, so that no other folder is searched, least of all the one with the photographs.
// Where the system does not tell which program this is, it is taken to be installed in its place.
std::string caminhoDoModulo() {
  std::error_code falha;
  const fs::path programa = fs::read_symlink("/proc/self/exe", falha);
  const fs::path pasta = falha ? fs::path(VORPLEX_PROGRAMAS) : programa.parent_path();
  const fs::path aoLado = pasta / "pimcodecs.so";
  const fs::path instalado = pasta / VORPLEX_CODECS / "pimcodecs.so";
  return fs::exists(aoLado, falha) ? aoLado : instalado;
}

// The module stays open to the end of the process: the images that it makes may outlive any call.
const CODECS& abreModulo() {
  void* modulo = dlopen(caminhoDoModulo().c_str(), RTLD_NOW | RTLD_LOCAL);
  const void* tabela = modulo != nullptr ? dlsym(modulo, "pimTabelaDeCodecs") : nullptr;
  if (tabela == nullptr) {
    const std::string porque = dlerror();
    if (modulo != nullptr) dlclose(modulo);
    erro("Erro: Modulo de imagens: ", porque);
  }
  return *static_cast<const CODECS*>(tabela);
}

}  // namespace

const CODECS& codecs() {
  static const CODECS& tabela = abreModulo();
  return tabela;
}

}  // namespace pim
