#include "pim/modulos.h"

#include <dlfcn.h>

#include <filesystem>

#include "pim/erro.h"

namespace fs = std::filesystem;

namespace pim {

std::string arquivoDoPrograma(const std::string& nome) {
  std::error_code falha;
  const fs::path programa = fs::read_symlink("/proc/self/exe", falha);
  const fs::path pasta = falha ? fs::path(VORPLEX_PROGRAMAS) : programa.parent_path();
  const fs::path aoLado = pasta / nome;
  const fs::path instalado = pasta / VORPLEX_MODULOS / nome;
  return fs::exists(aoLado, falha) ? aoLado : instalado;
}

const void* abreModulo(const std::string& nome, const char* simbolo, const std::string& mensagem) {
  void* modulo = dlopen(arquivoDoPrograma(nome).c_str(), RTLD_NOW | RTLD_LOCAL);
  const void* tabela = modulo != nullptr ? dlsym(modulo, simbolo) : nullptr;
  if (tabela == nullptr) {
    const std::string porque = dlerror();
    if (modulo != nullptr) dlclose(modulo);
    erro(mensagem, porque);
  }
  return tabela;
}

}  // namespace pim
