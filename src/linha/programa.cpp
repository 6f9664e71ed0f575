#include "linha/programa.h"

namespace linha {

std::vector<OPCAO> opcoesDe(const PROGRAMA& p) {
  std::vector<OPCAO> v;
  for (const GRUPO& g : p.grupos) v.insert(v.end(), g.opcoes.begin(), g.opcoes.end());
  return v;
}

int lugarDaPalavra(const std::string& texto, std::span<const FRASE> palavras) {
  for (std::size_t i = 0; i < palavras.size(); ++i) {
    if (texto == palavras[i].pt || texto == palavras[i].en) return static_cast<int>(i);
  }
  return -1;
}

}  // namespace linha
