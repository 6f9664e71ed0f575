#pragma once

#include <array>

#include "apura/modo.h"
#include "linha/geral.h"
#include "linha/programa.h"

// The command line of vorplex-mapa.

namespace mapa {

enum LONGA { rede = 256, indices, cartao };

inline constexpr std::array<linha::OPERANDO, 2> operandos = {{
    {{"FOTO", "PHOTO"}, {"a fotografia", "the photograph"}, linha::TIPO::fotos},
    {{"SAIDA", "OUTPUT"},
     {".csv (tabela), .ho2 (lista), NOME_labels.png (rótulos de 16 bits), NOME_mapa.png "
      "(distância, dentro e limite em vermelho, verde e azul) ou imagem com contornos (.png, .jpg, "
      ".tif...)",
      ".csv (table), .ho2 (list), NAME_labels.png (labels of 16 bits), NAME_mapa.png (distance, "
      "inside and limit in red, green and blue) or a picture with outlines (.png, .jpg, .tif...)"},
     linha::TIPO::saida},
}};

inline constexpr std::array<linha::OPCAO, 5> proprias = {{
    {rede,
     "rede",
     "network",
     {"fotos (default), cenas (aprendida sem fotografia alguma) ou um arquivo de pesos feito por "
      "script/treina-textura",
      "fotos (default), cenas (learned without any photograph) or a file of weights made by "
      "script/treina-textura"},
     {"REDE", "NETWORK"}},
    apura::opcoesDoModo[1],
    apura::opcoesDoModo[3],
    {indices,
     "indices",
     "indices",
     {"numera os contornos da imagem", "numbers the outlines of the picture"}},
    {cartao,
     "cartao",
     "card",
     {"mostra com que a rede aprendeu", "shows what the network was learned on"}},
}};

inline constexpr std::array<linha::OPCAO, 1> execucao = {{
    {'j',
     "fios",
     "threads",
     {"fios de execução (default: um por processador)",
      "threads (default: one for each processor)"},
     {"N", "N"}},
}};

inline constexpr std::array<linha::GRUPO, 3> grupos = {{
    {{"Grãos", "Grains"}, proprias},
    {{"Execução", "Running"}, execucao},
    linha::geral,
}};

inline constexpr linha::PROGRAMA programa = {
    "vorplex-mapa",
    {"acha grãos com textura que se tocam (seixos, cascalho) com uma pequena rede neural e mede "
     "cada um como elipse",
     "finds textured grains that touch (pebbles, gravel) with a small neural network and measures "
     "each as an ellipse"},
    {},
    operandos,
    grupos,
    {"0 tudo bem, 1 falha, 2 uso errado", "0 all well, 1 failure, 2 wrong use"}};

}  // namespace mapa
