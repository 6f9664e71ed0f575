#pragma once

#include <getopt.h>

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "export/idioma.h"

// The command lines of the programs that have options.

namespace linha {

namespace frases {

inline constexpr exporta::FRASE erro = {"Erro: ", "Error: "};
inline constexpr exporta::FRASE opcaoDesconhecida = {"Opcao desconhecida %s", "Unknown option %s"};
inline constexpr exporta::FRASE faltaValor = {"Falta o valor de %s", "%s lacks its value"};
inline constexpr exporta::FRASE valorDemais = {"A opcao nao leva valor: %s",
                                               "The option takes no value: %s"};
inline constexpr exporta::FRASE idiomaRuim = {"Idioma invalido %s (pt ou en)",
                                              "Invalid language %s (pt or en)"};
inline constexpr exporta::FRASE saidaPadrao = {"Gravacao da saida padrao",
                                               "Writing to standard output"};

}  // namespace frases

// Opens those of the three standard streams that are closed, on nothing: other files must not take
// their numbers.
void garanteSaidas();

// Stores an option, its value null when it has none; returns why it was refused, with %s for the
// value, or null.
using GUARDA = std::function<const exporta::FRASE*(int letra, const char* valor)>;

// What was refused first; no phrase when nothing was.
struct RECUSA {
  const exporta::FRASE* frase = nullptr;
  std::string valor;
};

// Hands the options among `palavras`, the first of which is the name of the program, to `guarda`.
// They may stand anywhere before "--". `curtas` and `longas` are those of getopt_long, `curtas`
// begins with ":" and `longas` ends with zeros. What is no option is left in `palavras`, in order.
RECUSA leOpcoes(std::vector<std::string>& palavras, const char* curtas,
                std::span<const option> longas, const GUARDA& guarda);

// "pt" or "en"; false for anything else.
bool leIdioma(const std::string& texto, exporta::IDIOMA& i);

}  // namespace linha
