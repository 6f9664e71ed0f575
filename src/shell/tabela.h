#pragma once

#include <array>

#include "linha/programa.h"

// The command line of Vorplex: what its programs are called, for manual and completion. It has no
// options.

namespace shell {

using linha::OPERANDO;
using linha::TIPO;

inline constexpr std::array<OPERANDO, 2> doKernel = {{
    {{"kernel.cfg", "kernel.cfg"}, {}, TIPO::kernel},
    {{"kernel.png", "kernel.png"}, {}, TIPO::saida},
}};
inline constexpr std::array<OPERANDO, 4> doCorrela = {{
    {{"imagem.pgm", "image.pgm"}, {}, TIPO::fotos},
    {{"kernel.cfg", "kernel.cfg"}, {}, TIPO::kernel},
    {{"imagem.ho1", "image.ho1"}, {}, TIPO::lista},
    {{"[minCorr]", "[minCorr]"}, {}},
}};
inline constexpr std::array<OPERANDO, 4> doTraca = {{
    {{"imagem.ppm", "image.ppm"}, {}, TIPO::fotos},
    {{"imagem.ho1", "image.ho1"}, {}, TIPO::lista},
    {{"saida.ppm", "output.ppm"}, {}, TIPO::saida},
    {{"[c|C|i|p|P...]", "[c|C|i|p|P...]"}, {}},
}};
inline constexpr std::array<OPERANDO, 3> doExtrai = {{
    {{"imagem.jpg", "image.jpg"}, {}, TIPO::fotos},
    {{"fatorZoom", "zoomFactor"}, {}},
    {{"[f0...]", "[f0...]"}, {}},
}};
inline constexpr std::array<OPERANDO, 4> doFiltra = {{
    {{"imagem.pgm", "image.pgm"}, {}, TIPO::fotos},
    {{"imagem.ho1", "image.ho1"}, {}, TIPO::lista},
    {{"saida.ppm|saida.ho2", "output.ppm|output.ho2"}, {}, TIPO::saida},
    {{"FORMA minCorr maxInter...", "SHAPE minCorr maxInter..."}, {}},
}};
inline constexpr std::array<OPERANDO, 2> doRelat = {{
    {{"ent.ho2", "input.ho2"}, {}, TIPO::lista},
    {{"sai.rel", "output.rel"}, {}},
}};

inline constexpr std::array<linha::COMANDO, 9> comandos = {{
    {"kernel", {"desenha os kernels de kernel.cfg", "draws the kernels of kernel.cfg"}, doKernel},
    {"correla",
     {"procura as formas numa imagem e escreve a lista das detecções",
      "searches an image for the shapes and writes the list of detections"},
     doCorrela},
    {"traca",
     {"desenha as detecções de uma lista sobre a imagem",
      "draws the detections of a list over the image"},
     doTraca},
    {"extraiam",
     {"recorta uma amostra em volta de cada detecção", "cuts a sample around each detection"},
     doExtrai},
    {"extraicla",
     {"recorta amostras com a sua classe no nome", "cuts samples with their class in the name"},
     doExtrai},
    {"filtra",
     {"tira as detecções que cobrem outras mais fortes",
      "removes the detections that overlap stronger ones"},
     doFiltra},
    {"oldcorrela", {"procura do modo antigo", "searches in the earlier way"}, doCorrela},
    {"relat", {"conta as detecções por área", "counts the detections by area"}, doRelat},
    {"contaform",
     {"conta as detecções de cada .ho2 da pasta",
      "counts the detections of each .ho2 of the folder"},
     {}},
}};

inline constexpr linha::PROGRAMA programa = {
    "Vorplex",
    {"programas para granulometria multi-formas em fotografias; o nome de um deles vai em "
     "maiúsculas "
     "ou minúsculas",
     "programs for multi-shape granulometry in photographs; the name of one in any letter case"},
    comandos,
    {},
    {},
    {"0 tudo bem, 1 erro, 134 asserção falhou", "0 all well, 1 error, 134 failed assertion"}};

}  // namespace shell
