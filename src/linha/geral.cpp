#include "linha/geral.h"

#include <algorithm>
#include <cstdlib>

namespace linha {

bool ehGeral(int letra) {
  return std::any_of(opcoesGerais.begin(), opcoesGerais.end(),
                     [letra](const OPCAO& o) { return o.letra == letra; });
}

exporta::IDIOMA idiomaDoAmbiente() {
  for (const char* nome : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* valor = std::getenv(nome);
    const std::string lingua = valor == nullptr ? "" : valor;
    if (lingua.empty()) continue;
    const std::string antes = lingua.substr(0, lingua.find_first_of(".@"));
    const bool nossa = lingua.starts_with("pt") || antes == "C" || antes == "POSIX";
    return nossa ? exporta::IDIOMA::pt : exporta::IDIOMA::en;
  }
  return exporta::IDIOMA::pt;
}

}  // namespace linha
