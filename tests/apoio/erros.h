#pragma once

#include <cstddef>
#include <string>

#include "pim/erro.h"

// Carries out `acao`; the message of the pim::ERRO that it threw, empty when it threw none. Other
// exceptions pass.
template <class ACAO>
std::string erroDe(ACAO acao) {
  try {
    acao();
  } catch (const pim::ERRO& e) {
    return e.mensagem;
  }
  return "";
}

// The same for the text of a failed assertion, "arquivo:linha: funcao: Assertion `...' failed."
template <class ACAO>
std::string assercaoDe(ACAO acao) {
  try {
    acao();
  } catch (const pim::ASSERCAO& e) {
    return e.what();
  }
  return "";
}

// That text without the line number, where any will do.
template <class ACAO>
std::string assercaoSemLinha(ACAO acao) {
  std::string texto = assercaoDe(acao);
  const std::size_t linha = texto.find(':');
  if (linha != std::string::npos) texto.erase(linha, texto.find(':', linha + 1) - linha);
  return texto;
}

// An access outside a grid.
inline const std::string foraDaGrade =
    "pimvet: T& MATRIZ<T>::operator()(unsigned int, unsigned int): "
    "Assertion `l<rows && c<cols' failed.";
