#pragma once

#include <array>

#include "apura/modo.h"
#include "linha/geral.h"
#include "linha/programa.h"

// The command line of vorplex-apura.

namespace apura {

enum OPCAO_DA_SAIDA { indices = 256 };

inline constexpr std::array<linha::OPERANDO, 3> operandos = {{
    {{"FOTO", "PHOTO"}, {"a fotografia", "the photograph"}, linha::TIPO::fotos},
    {{"LISTA", "LIST"},
     {"as detecções, .ho1 ou .ho2", "the detections, .ho1 or .ho2"},
     linha::TIPO::lista},
    {{"SAIDA", "OUTPUT"},
     {".csv (tabela), .ho2 (lista) ou imagem com contornos (.png, .jpg, .tif...)",
      ".csv (table), .ho2 (list) or a picture with outlines (.png, .jpg, .tif...)"},
     linha::TIPO::saida},
}};

inline constexpr std::array<linha::OPCAO, 3> opcoesDoTrabalho = {{
    {'i', "inverte", "invert", {"grãos claros em fundo escuro", "bright grains on dark ground"}},
    {indices,
     "indices",
     "indices",
     {"numera os contornos da imagem", "numbers the outlines of the picture"}},
    {'j',
     "fios",
     "threads",
     {"fios de execução (default: um por processador)",
      "threads (default: one for each processor)"},
     {"N", "N"}},
}};

inline constexpr std::array<linha::GRUPO, 3> grupos = {{
    {{"Que detecções são grãos", "Which detections are grains"}, opcoesDoModo},
    {{"Fotografia e saída", "Photograph and output"}, opcoesDoTrabalho},
    linha::geral,
}};

inline constexpr linha::PROGRAMA programa = {
    "vorplex-apura",
    {"ajusta as detecções de uma lista às bordas da fotografia, escolhe as que são grãos e mede "
     "cada um em frações de pixel, com o erro padrão",
     "fits the detections of a list to the edges of the photograph, chooses those that are grains "
     "and measures each to fractions of a pixel, with standard errors"},
    {},
    operandos,
    grupos,
    {"0 tudo bem, 1 falha, 2 uso errado", "0 all well, 1 failure, 2 wrong use"}};

}  // namespace apura
