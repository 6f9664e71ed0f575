#pragma once

#include <functional>
#include <optional>
#include <string>

#include "export/idioma.h"

// Errors of the sub-programs and of the system in the language of the messages around them. The
// sub-programs speak Portuguese alone, the system English.

namespace linha {

// An error of the sub-programs in English; nothing for a text that is none of theirs.
std::optional<std::string> emIngles(const std::string& mensagem);

// An error of the sub-programs in the language asked for; what is none of theirs as it is, but for
// an "Erro: " before it.
std::string traduzida(const std::string& mensagem, exporta::IDIOMA i);

// What strerror and strsignal say. The usual errors and signals are known in Portuguese too.
std::string erroDoSistema(int numero, exporta::IDIOMA i);
std::string nomeDoSinal(int sinal, exporta::IDIOMA i);

// Carries out all that a program does; what it throws passes with its message in that language.
void emSuaLingua(exporta::IDIOMA i, const std::function<void()>& trabalho);

}  // namespace linha
