#pragma once

#include "export/idioma.h"

// What vorplex-apura says, in both languages. Portuguese goes without accents, as in the messages
// of the sub-programs. %s is filled in by cv::format.

namespace apura::falas {

inline constexpr exporta::FRASE ajuda = {
    "vorplex-apura [opcoes] FOTO LISTA SAIDA\n"
    "  Ajusta as deteccoes de uma lista (.ho1 ou .ho2) as bordas da fotografia, escolhe\n"
    "  as que sao graos e mede cada um em fracoes de pixel, com o erro padrao\n"
    "  SAIDA: .csv (tabela), .ho2 (lista) ou imagem com contornos (.png, .jpg, .tif...)\n"
    "      --familias LETRAS   formas que um grao pode ter, de c q r e (default: cqre)\n"
    "      --tamanhos MIN-MAX  diametros equivalentes de um grao, em pixels, como 5-80\n"
    "      --sobreposicao X    parte da area que graos podem dividir, 0 a 1 (default: 0.3)\n"
    "      --sensibilidade X   de 0 (poucos e certos) a 1 (muitos); default: 0.5\n"
    "      --sem-letras        cada grao fica com a forma da lista\n"
    "  -i, --inverte           graos claros em fundo escuro\n"
    "      --indices           numera os contornos da imagem\n"
    "  -j, --fios N            fios de execucao (default: um por processador)\n"
    "      --idioma pt|en      lingua das mensagens e da tabela\n"
    "      --quieto            diz apenas erros e avisos\n"
    "  -h, --ajuda             mostra este texto\n"
    "  -V, --versao            mostra a versao\n"
    "Estado final: 0 tudo bem, 1 falha, 2 uso errado\n",
    "vorplex-apura [options] PHOTO LIST OUTPUT\n"
    "  Fits the detections of a list (.ho1 or .ho2) to the edges of the photograph, chooses\n"
    "  those that are grains and measures each to fractions of a pixel, with standard errors\n"
    "  OUTPUT: .csv (table), .ho2 (list) or a picture with outlines (.png, .jpg, .tif...)\n"
    "      --families LETTERS  shapes that a grain may have, of c q r e (default: cqre)\n"
    "      --sizes MIN-MAX     equivalent diameters of a grain, in pixels, such as 5-80\n"
    "      --overlap X         share of the area that grains may have in common, 0 to 1\n"
    "                          (default: 0.3)\n"
    "      --sensitivity X     from 0 (few and sure) to 1 (many); default: 0.5\n"
    "      --keep-letters      each grain keeps the shape that the list has\n"
    "  -i, --invert            bright grains on dark ground\n"
    "      --indices           numbers the outlines of the picture\n"
    "  -j, --threads N         threads (default: one for each processor)\n"
    "      --language pt|en    language of the messages and the table\n"
    "      --quiet             tells errors and warnings only\n"
    "  -h, --help              shows this text\n"
    "  -V, --version           shows the version\n"
    "Exit status: 0 all well, 1 failure, 2 wrong use\n"};

inline constexpr exporta::FRASE vejaAjuda = {"(vorplex-apura --ajuda mostra as opcoes)",
                                             "(vorplex-apura --help shows the options)"};

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
