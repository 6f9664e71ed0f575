#pragma once

#include "export/idioma.h"

// What vorplex-sugere alone says, in both languages. Portuguese goes without accents, as in the
// messages of the sub-programs. %s is filled in by cv::format.

namespace proposta::falas {

inline constexpr exporta::FRASE sufixoDesconhecido = {
    "Sufixo desconhecido em %s (use uma imagem: png, jpg, tif...)",
    "Unknown suffix in %s (use a picture: png, jpg, tif...)"};
inline constexpr exporta::FRASE figuraEhFoto = {
    "A figura %s apagaria uma das fotografias",
    "The picture %s would erase one of the photographs"};

inline constexpr exporta::FRASE ilegivel = {"Aviso: %s nao pode ser lida",
                                            "Warning: %s can't be read"};

}  // namespace proposta::falas
