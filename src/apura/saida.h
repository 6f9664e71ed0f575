#pragma once

#include <opencv2/core.hpp>
#include <string>

#include "apura/opcoes.h"
#include "measure/resumo.h"
#include "pim/converte.h"

namespace apura {

enum class TIPO { tabela, lista, imagem, desconhecido };

// What the suffix of a name asks for. A picture is any format that can be written.
TIPO tipoDaSaida(const std::string& nome);

// What can be known to be wrong with the name of the output before there is one: it has no folder
// or is one. An empty text when nothing is.
std::string motivoDaSaida(const OPCOES& o);

// Whether writing the output would erase the photograph or the list.
bool apagaEntrada(const OPCOES& o);

// Writes the result, whole or not at all. `cores` is the photograph for a picture with outlines.
// pim::erro when it can't be written.
void impSaida(const OPCOES& o, TIPO tipo, const measure::FOTOGRAFIA& foto,
              cv::Mat_<pim::VEC3B> cores);

}  // namespace apura
