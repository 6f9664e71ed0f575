#pragma once

#include <getopt.h>

#include <array>
#include <string>

#include "export/idioma.h"
#include "refine/apura.h"

// The options that say which detections become grains, the same for every program that has them.

namespace apura {

// What getopt_long returns for them.
enum OPCAO_DO_MODO { familias = 512, tamanhos, sobreposicao, sensibilidade, semLetras };

// In Portuguese, then in English.
inline constexpr std::array<option, 10> opcoesDoModo = {{
    {"familias", required_argument, nullptr, familias},
    {"tamanhos", required_argument, nullptr, tamanhos},
    {"sobreposicao", required_argument, nullptr, sobreposicao},
    {"sensibilidade", required_argument, nullptr, sensibilidade},
    {"sem-letras", no_argument, nullptr, semLetras},
    {"families", required_argument, nullptr, familias},
    {"sizes", required_argument, nullptr, tamanhos},
    {"overlap", required_argument, nullptr, sobreposicao},
    {"sensitivity", required_argument, nullptr, sensibilidade},
    {"keep-letters", no_argument, nullptr, semLetras},
}};

inline bool ehDoModo(int letra) {
  return letra >= familias && letra <= semLetras;
}

// Stores one of them; returns why its value was refused, with %s for the value, or null.
const exporta::FRASE* guardaModo(int letra, const std::string& valor, refine::MODO_DE_APURAR& m);

}  // namespace apura
