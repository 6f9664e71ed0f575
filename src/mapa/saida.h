#pragma once

#include <opencv2/core.hpp>
#include <string>

#include "mapa/opcoes.h"
#include "pim/converte.h"
#include "textura/acha.h"

namespace mapa {

enum class TIPO { tabela, lista, rotulos, mapa, imagem, desconhecido };

// What the end of a name asks for: "_labels.png" and "_mapa.png" before the suffix alone.
TIPO tipoDaSaida(const std::string& nome);

// Writes the result, whole or not at all. `cores` is the photograph for a picture with outlines.
// pim::erro when it can't be written.
void impSaida(const OPCOES& o, TIPO tipo, const textura::ACHADOS& a, cv::Mat_<pim::VEC3B> cores);

}  // namespace mapa
