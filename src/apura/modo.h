#pragma once

#include <array>
#include <string>

#include "linha/programa.h"
#include "refine/apura.h"

// The options that say which detections become grains, the same for every program that has them.

namespace apura {

enum OPCAO_DO_MODO { familias = 512, tamanhos, sobreposicao, sensibilidade, semLetras };

inline constexpr std::array<linha::OPCAO, 5> opcoesDoModo = {{
    {familias,
     "familias",
     "families",
     {"formas que um grão pode ter, de c q r e (default: cqre)",
      "shapes that a grain may have, of c q r e (default: cqre)"},
     {"LETRAS", "LETTERS"}},
    {tamanhos,
     "tamanhos",
     "sizes",
     {"diâmetros equivalentes de um grão, em pixels, como 5-80",
      "equivalent diameters of a grain, in pixels, such as 5-80"},
     {"MIN-MAX", "MIN-MAX"}},
    {sobreposicao,
     "sobreposicao",
     "overlap",
     {"parte da área que grãos podem dividir, 0 a 1 (default: 0.3)",
      "share of the area that grains may have in common, 0 to 1 (default: 0.3)"},
     {"X", "X"}},
    {sensibilidade,
     "sensibilidade",
     "sensitivity",
     {"de 0 (poucos e certos) a 1 (muitos); default: 0.5",
      "from 0 (few and sure) to 1 (many); default: 0.5"},
     {"X", "X"}},
    {semLetras,
     "sem-letras",
     "keep-letters",
     {"cada grão fica com a forma da lista", "each grain keeps the shape that the list has"}},
}};

inline bool ehDoModo(int letra) {
  return letra >= familias && letra <= semLetras;
}

// Stores one of them; returns why its value was refused, with %s for the value, or null.
const exporta::FRASE* guardaModo(int letra, const std::string& valor, refine::MODO_DE_APURAR& m);

}  // namespace apura
