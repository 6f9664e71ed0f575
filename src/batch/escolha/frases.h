#pragma once

#include "export/idioma.h"

// What is said about a kernel.cfg that is chosen by the photographs, as batch/pedido/frases.h.

namespace batch::falas {

inline constexpr exporta::FRASE escolhendo = {"Escolhendo o que procurar...",
                                              "Choosing what to search for..."};
inline constexpr exporta::FRASE escolhaAnterior = {
    "Usando %s, escolhido antes (--refaz escolhe de novo)",
    "Using %s, chosen before (--redo chooses anew)"};
inline constexpr exporta::FRASE nenhumaLida = {"Nenhuma das %s fotografias olhadas pode ser lida",
                                               "None of the %s photographs looked at can be read"};
inline constexpr exporta::FRASE recadoInverte = {"%s pede graos claros (-i)",
                                                 "%s asks for bright grains (-i)"};

inline constexpr exporta::FRASE escuros = {"escuros", "dark"};
inline constexpr exporta::FRASE claros = {"claros", "bright"};
inline constexpr exporta::FRASE escolhido = {
    "Escolhido por %zu de %zu fotografias: graos %s de %.3g a %.3g pixels (%s)",
    "Chosen by %zu of %zu photographs: %s grains of %.3g to %.3g pixels (%s)"};
inline constexpr exporta::FRASE geral = {
    "Ajustes gerais: nenhum grao foi visto em %zu de %zu fotografias",
    "General settings: no grain was seen in %zu of %zu photographs"};
inline constexpr exporta::FRASE nada = {
    "Aviso: nenhum grao foi visto; os ajustes gerais procuram graos escuros de 8 a 128 pixels",
    "Warning: no grain was seen; the general settings search for dark grains of 8 to 128 pixels"};
inline constexpr exporta::FRASE ambas = {
    "Aviso: ha' graos claros e escuros; os %s ficam fora (%.0f%% do que se viu)",
    "Warning: there are bright and dark grains; the %s ones are left out (%.0f%% of what was "
    "seen)"};
inline constexpr exporta::FRASE destoa = {"Aviso: %s destoa da escolha: seus graos parecem %s",
                                          "Warning: %s doesn't fit the choice: its grains look %s"};
inline constexpr exporta::FRASE vazia = {
    "Aviso: %s destoa da escolha: nenhum grao foi visto nela",
    "Warning: %s doesn't fit the choice: no grain was seen in it"};

}  // namespace batch::falas
