#pragma once

#include <functional>
#include <string>
#include <vector>

#include "export/idioma.h"
#include "linha/programa.h"

// The command lines of the programs that have options.

namespace linha {

namespace frases {

inline constexpr FRASE erro = {"Erro: ", "Error: "};
inline constexpr FRASE opcaoDesconhecida = {"Opcao desconhecida %s", "Unknown option %s"};
inline constexpr FRASE opcaoAmbigua = {"Opcao ambigua %s", "Ambiguous option %s"};
inline constexpr FRASE faltaValor = {"Falta o valor de %s", "%s lacks its value"};
inline constexpr FRASE valorDemais = {"A opcao nao leva valor: %s",
                                      "The option takes no value: %s"};
inline constexpr FRASE idiomaRuim = {"Idioma invalido %s (pt ou en)",
                                     "Invalid language %s (pt or en)"};
inline constexpr FRASE quisDizer = {"; quis dizer %s?", "; did you mean %s?"};
inline constexpr FRASE ou = {" ou ", " or "};
inline constexpr FRASE vejaAjuda = {"(%s --ajuda mostra as opcoes)",
                                    "(%s --help shows the options)"};
inline constexpr FRASE saidaPadrao = {"Gravacao da saida padrao", "Writing to standard output"};

}  // namespace frases

// Opens those of the three standard streams that are closed, on nothing: other files must not take
// their numbers.
void garanteSaidas();

// Stores an option, its value empty when it has none; returns why it was refused, with %s for the
// value, or null.
using GUARDA = std::function<const FRASE*(const OPCAO& opcao, const std::string& valor)>;

// What was refused first; no phrase when nothing was.
struct RECUSA {
  const FRASE* frase = nullptr;
  std::string valor;
  std::vector<FRASE> talvez;  // what may have been meant
};

// What was refused, in words; empty when nothing was.
std::string motivo(const RECUSA& r, exporta::IDIOMA i);

// Hands the options among `palavras`, the first of which is the name of the program, to `guarda`.
// They may stand anywhere before "--", and a long name may be cut short where it stays the only
// one. What is no option is left in `palavras`, in order.
RECUSA leOpcoes(std::vector<std::string>& palavras, const PROGRAMA& programa, const GUARDA& guarda);

}  // namespace linha
