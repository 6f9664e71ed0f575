#pragma once

#include <array>

#include "apura/modo.h"
#include "linha/geral.h"
#include "linha/programa.h"

// The command line of vorplex-sugere.

namespace proposta {

enum OPCAO_DA_AMOSTRA { amostra = 256 };

inline constexpr std::array<linha::OPERANDO, 1> operandos = {{
    {{"FOTO|PASTA...", "PHOTO|FOLDER..."},
     {"fotografias, e pastas com fotografias; - lê os nomes da entrada padrão, um por linha, ou "
      "separados por caracteres nulos",
      "photographs, and folders of photographs; - reads their names from standard input, one a "
      "line, "
      "or separated by null characters"},
     linha::TIPO::fotos},
}};

inline constexpr std::array<linha::OPCAO, 5> opcoesDaEscolha = {{
    {amostra,
     "amostra",
     "sample",
     {"quantas fotografias olhar (default: 8), espalhadas por todas",
      "how many photographs to look at (default: 8), spread over all"},
     {"N", "N"}},
    {'i',
     "inverte",
     "invert",
     {"os grãos são claros em fundo escuro (default: o que se vir)",
      "the grains are bright on dark ground (default: what is seen)"}},
    {'d',
     "figura",
     "picture",
     {"imagem do que se achou (.png, .jpg, .tif...)",
      "picture of what was found (.png, .jpg, .tif...)"},
     {"ARQUIVO", "FILE"},
     {},
     linha::TIPO::saida},
    {'r',
     "recursivo",
     "recursive",
     {"entra nas pastas dentro das pastas", "enters the folders inside the folders"}},
    {'j',
     "fios",
     "threads",
     {"fios de execução (default: um por processador)",
      "threads (default: one for each processor)"},
     {"N", "N"}},
}};

inline constexpr std::array<linha::GRUPO, 3> grupos = {{
    {{"A escolha", "The choice"}, opcoesDaEscolha},
    {{"Que detecções são grãos", "Which detections are grains"}, apura::opcoesDoModo},
    linha::geral,
}};

inline constexpr linha::PROGRAMA programa = {
    "vorplex-sugere",
    {"escolhe pelas fotografias o que procurar nelas, e escreve o kernel.cfg na saída padrão",
     "chooses by the photographs what to search for in them, and writes the kernel.cfg on standard "
     "output"},
    {},
    operandos,
    grupos,
    {"0 tudo bem, 1 falha, 2 uso errado", "0 all well, 1 failure, 2 wrong use"}};

}  // namespace proposta
