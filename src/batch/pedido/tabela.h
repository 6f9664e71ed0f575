#pragma once

#include <array>

#include "apura/modo.h"
#include "linha/geral.h"
#include "linha/programa.h"

// The command line of vorplex-lote.

namespace batch {

enum OPCAO_DO_LOTE {
  metodo = 256,
  borda,
  semBorda,
  refaz,
  amostra,
  json,
  simula,
  comCorrecoes,
  comGrupos,
  repete
};

// In the order of measure::METODO, GRANDEZA, PESO and BORDA.
inline constexpr std::array<linha::FRASE, 2> metodos = {
    {{"classico", "classic"}, {"apurado", "refined"}}};
inline constexpr std::array<linha::FRASE, 3> grandezas = {
    {{"equivalente", "equivalent"}, {"menor", "lesser"}, {"maior", "greater"}}};
inline constexpr std::array<linha::FRASE, 3> pesos = {
    {{"numero", "number"}, {"area", "area"}, {"volume", "volume"}}};

inline constexpr std::array<linha::FRASE, 3> bordas = {
    {{"corrige", "correct"}, {"inclui", "include"}, {"exclui", "exclude"}}};

inline constexpr std::array<linha::OPERANDO, 2> operandos = {{
    {{"[kernel.cfg]", "[kernel.cfg]"},
     {"as formas e os tamanhos que se procuram, como man kernel.cfg os conta (sem ele, escolhidos "
      "pelas fotografias)",
      "the shapes and sizes to look for, as man kernel.cfg tells (without it, chosen by the "
      "photographs)"},
     linha::TIPO::kernel},
    {{"FOTO|PASTA...", "PHOTO|FOLDER..."},
     {"fotografias, e pastas com fotografias; - lê os nomes da entrada padrão, um por linha, ou "
      "separados por caracteres nulos",
      "photographs, and folders of photographs; - reads their names from standard input, one a "
      "line, "
      "or separated by null characters"},
     linha::TIPO::fotos},
}};

inline constexpr std::array<linha::OPCAO, 6> opcoesDaProcura = {{
    {metodo,
     "metodo",
     "method",
     {"apurado (default): ajusta cada grão às bordas da fotografia, como vorplex-apura; classico: "
      "filtra as detecções",
      "refined (default): fits each grain to the edges of the photograph, as vorplex-apura; "
      "classic: filters the detections"},
     {"METODO", "METHOD"},
     metodos},
    {amostra,
     "amostra",
     "sample",
     {"sem kernel.cfg: quantas fotografias olhar para escolher (default: 8)",
      "without kernel.cfg: how many photographs to look at to choose (default: 8)"},
     {"N", "N"}},
    {'i', "inverte", "invert", {"grãos claros em fundo escuro", "bright grains on dark ground"}},
    {'c',
     "min-corr",
     "min-corr",
     {"correlação mínima da procura (default: a que convém ao método)",
      "smallest correlation of the search (default: what suits the method)"},
     {"X", "X"}},
    {'f',
     "filtra",
     "filter",
     {"do método classico: parâmetros de filtra, como \"default 0.3 0.1\"",
      "of method classic: parameters of filtra, such as \"default 0.3 0.1\""},
     {"\"...\"", "\"...\""}},
    {'r',
     "recursivo",
     "recursive",
     {"entra nas pastas dentro das pastas", "enters the folders inside the folders"}},
}};

inline constexpr std::array<linha::OPCAO, 8> opcoesDaMedida = {{
    {'e',
     "escala",
     "scale",
     {"lado de um pixel, ou pixels por unidade, como 20px/mm: um, mm, cm, m, in (sem ela, tudo em "
      "px)",
      "side of a pixel, or pixels to a unit, such as 20px/mm: um, mm, cm, m, in (without it, all "
      "in "
      "px)"},
     {"0.05mm", "0.05mm"}},
    {'g',
     "grandeza",
     "diameter",
     {"tamanho do grão: equivalente (default), menor ou maior",
      "size of a grain: equivalent (default), lesser or greater"},
     {"QUAL", "WHICH"},
     grandezas},
    {'w',
     "peso",
     "weight",
     {"peso do grão: numero (default), area ou volume",
      "weight of a grain: number (default), area or volume"},
     {"PESO", "WEIGHT"},
     pesos},
    {'p',
     "peneiras",
     "sieves",
     {"aberturas crescentes, como 0.5,1,2,4, na unidade da escala",
      "ascending apertures, such as 0.5,1,2,4, in the unit of the scale"},
     {"LISTA", "LIST"}},
    {comCorrecoes,
     "correcoes",
     "corrections",
     {"do método apurado: aplica as correções à mão que o relatório salvou",
      "of method refined: applies the corrections by hand that the report has saved"},
     {"correcoes.json", "correcoes.json"},
     {},
     linha::TIPO::lista},
    {comGrupos,
     "grupos",
     "groups",
     {"compara grupos: pastas, ou uma tabela foto,grupo,escala,polaridade",
      "compares groups: folders, or a table photograph,group,scale,polarity"},
     {"pastas|CSV", "folders|CSV"},
     {},
     linha::TIPO::lista},
    {borda,
     "borda",
     "border",
     {"grãos cortados pela borda da fotografia: corrige (default) conta os inteiros pelo inverso "
      "da "
      "probabilidade de estarem inteiros nela; inclui conta todos; exclui deixa fora os cortados",
      "grains cut by the picture's border: correct (default) counts whole ones by the inverse of "
      "their chance of lying whole in it; include counts all; exclude leaves the cut ones out"},
     {"QUAL", "WHICH"},
     bordas},
    {semBorda,
     "sem-borda",
     "no-border",
     {"o mesmo que --borda exclui", "same as --border exclude"}},
}};

inline constexpr std::array<linha::OPCAO, 6> opcoesDaCorrida = {{
    {'o',
     "saida",
     "output",
     {"onde ficam os resultados (default: resultado)", "where the results go (default: resultado)"},
     {"PASTA", "FOLDER"},
     {},
     linha::TIPO::pasta},
    {'j',
     "processos",
     "processes",
     {"fotografias ao mesmo tempo (default: o que a máquina permite)",
      "photographs at a time (default: what the machine allows)"},
     {"N", "N"}},
    {repete,
     "repete",
     "repeat",
     {"faz de novo a corrida de um proveniencia.json e diz o que difere (na pasta repeticao, se "
      "não "
      "se diz outra)",
      "does the run of a proveniencia.json again and tells what differs (in folder repeticao "
      "unless "
      "another is named)"},
     {"proveniencia.json", "proveniencia.json"},
     {},
     linha::TIPO::lista},
    {refaz,
     "refaz",
     "redo",
     {"faz de novo o que já está pronto", "does again what is done already"}},
    {json,
     "json",
     "json",
     {"escreve o resumo em JSON na saída padrão, e as mensagens na de erros",
      "writes the summary as JSON to standard output, and messages to standard error"}},
    {simula,
     "simula",
     "dry-run",
     {"diz o que seria feito e não faz nada", "says what would be done and does nothing"}},
}};

inline constexpr std::array<linha::GRUPO, 5> grupos = {{
    {{"Procura", "Search"}, opcoesDaProcura},
    {{"Que detecções são grãos (método apurado)", "Which detections are grains (method refined)"},
     apura::opcoesDoModo},
    {{"Medida", "Measuring"}, opcoesDaMedida},
    {{"Corrida", "The run"}, opcoesDaCorrida},
    linha::geral,
}};

inline constexpr linha::PROGRAMA programa = {
    "vorplex-lote",
    {"procura, filtra, mede e relata os grãos de muitas fotografias",
     "searches, filters, measures and reports the grains of many photographs"},
    {},
    operandos,
    grupos,
    {"0 tudo bem, 1 algo falhou, 2 uso errado, 130 interrompido",
     "0 all well, 1 something failed, 2 wrong use, 130 interrupted"}};

}  // namespace batch
