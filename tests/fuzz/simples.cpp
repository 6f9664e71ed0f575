#include "simples.h"

#include <algorithm>

std::string_view semMarca(std::string_view texto) {
  constexpr std::string_view marcaUtf8 = "\xEF\xBB\xBF";
  if (texto.starts_with(marcaUtf8)) texto.remove_prefix(marcaUtf8.size());
  return texto;
}

std::vector<std::string> tokensSimples(std::string_view texto) {
  constexpr std::string_view espacos = " \t\n\v\f\r";
  std::vector<std::string> tokens;
  while (true) {
    const std::size_t inicio = texto.find_first_not_of(espacos);
    if (inicio == std::string_view::npos) return tokens;
    texto.remove_prefix(inicio);
    std::string_view token = texto.substr(0, texto.find_first_of(espacos));
    texto.remove_prefix(token.size());
    if (token.starts_with("//")) {
      texto.remove_prefix(std::min(texto.find('\n'), texto.size()));
    } else {
      tokens.emplace_back(token);
    }
  }
}
