#pragma once

#include "export/idioma.h"

// What vorplex-apura says, in both languages. Portuguese goes without accents, as in the messages
// of the sub-programs. %s is filled in by cv::format.

namespace apura::falas {

// Wrong use.
inline constexpr exporta::FRASE faltaFoto = {"Falta a fotografia", "The photograph is missing"};
inline constexpr exporta::FRASE faltaLista = {"Falta a lista de deteccoes",
                                              "The list of detections is missing"};
inline constexpr exporta::FRASE faltaSaida = {"Falta o arquivo de saida",
                                              "The output file is missing"};
inline constexpr exporta::FRASE palavraDemais = {"Argumento a mais: %s", "One word too many: %s"};
inline constexpr exporta::FRASE familiasRuins = {"Familias invalidas %s (letras de c q r e)",
                                                 "Invalid families %s (letters of c q r e)"};
inline constexpr exporta::FRASE tamanhosRuins = {"Tamanhos invalidos %s (MIN-MAX, como 5-80)",
                                                 "Invalid sizes %s (MIN-MAX, such as 5-80)"};
inline constexpr exporta::FRASE sobreposicaoRuim = {"Sobreposicao invalida %s (0 a 1)",
                                                    "Invalid overlap %s (0 to 1)"};
inline constexpr exporta::FRASE sensibilidadeRuim = {"Sensibilidade invalida %s (0 a 1)",
                                                     "Invalid sensitivity %s (0 to 1)"};
inline constexpr exporta::FRASE fiosRuins = {"Numero de fios invalido %s (1 a 1024)",
                                             "Invalid number of threads %s (1 to 1024)"};
inline constexpr exporta::FRASE sufixoDesconhecido = {
    "Sufixo desconhecido em %s (use csv, ho2 ou uma imagem: png, jpg, tif...)",
    "Unknown suffix in %s (use csv, ho2 or a picture: png, jpg, tif...)"};
inline constexpr exporta::FRASE saidaEhEntrada = {"A saida %s apagaria uma das entradas",
                                                  "The output %s would erase one of the inputs"};

// The work.
inline constexpr exporta::FRASE semPasta = {"Nao ha pasta para %s", "There is no folder for %s"};
inline constexpr exporta::FRASE saidaEhPasta = {"%s e' uma pasta", "%s is a folder"};
inline constexpr exporta::FRASE nenhumaServe = {
    "Nenhuma deteccao de %s cabe na fotografia %s: sera a lista de outra?",
    "No detection of %s fits the photograph %s: is it the list of another?"};
inline constexpr exporta::FRASE recusados = {
    "Aviso: %s de %s deteccoes deixadas fora (centro fora da fotografia ou forma sem medida)",
    "Warning: %s of %s detections left out (centre outside of the photograph, or no such shape)"};
inline constexpr exporta::FRASE resultado = {"%s graos de %s deteccoes em %s",
                                             "%s grains of %s detections in %s"};

}  // namespace apura::falas
