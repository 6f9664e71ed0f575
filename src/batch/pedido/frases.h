#pragma once

#include "export/idioma.h"

namespace batch {

// What vorplex-lote says, all of it here, in both languages. Portuguese goes without accents, as in
// the messages of the sub-programs. %s and %d are filled in by cv::format.

namespace falas {

// Wrong use.
inline constexpr exporta::FRASE faltaFoto = {"Falta fotografia ou pasta",
                                             "No photograph or folder given"};
inline constexpr exporta::FRASE escalaRuim = {
    "Escala invalida %s (numero de 1e-9 a 1e9 e um, mm, cm, m ou in, como 0.05mm ou 20px/mm)",
    "Invalid scale %s (a number from 1e-9 to 1e9 and um, mm, cm, m or in, such as 0.05mm or "
    "20px/mm)"};
inline constexpr exporta::FRASE metodoRuim = {"Metodo invalido %s (apurado ou classico)",
                                              "Invalid method %s (refined or classic)"};
inline constexpr exporta::FRASE filtraEhDoClassico = {
    "-f (--filtra) pertence ao metodo classico: use tambem --metodo classico, ou tire -f",
    "-f (--filter) belongs to method classic: add --method classic, or leave -f out"};
inline constexpr exporta::FRASE opcaoFiltra = {"--filtra", "--filter"};
inline constexpr exporta::FRASE modoEhDoApurado = {
    "--familias, --tamanhos, --sobreposicao, --sensibilidade e --sem-letras pertencem ao metodo "
    "apurado",
    "--families, --sizes, --overlap, --sensitivity and --keep-letters belong to method refined"};
inline constexpr exporta::FRASE correcoesSaoDoApurado = {"--correcoes pertence ao metodo apurado",
                                                         "--corrections belongs to method refined"};
inline constexpr exporta::FRASE arquivoVazio = {"Arquivo sem nome", "File without a name"};
inline constexpr exporta::FRASE arquivoIlegivel = {"%s inexistente ou ilegivel (%s)",
                                                   "%s can't be read (%s)"};
inline constexpr exporta::FRASE minCorrRuim = {"Correlacao minima invalida %s (0 a 1)",
                                               "Invalid smallest correlation %s (0 to 1)"};
inline constexpr exporta::FRASE grandezaRuim = {
    "Grandeza invalida %s (equivalente, menor ou maior)",
    "Invalid diameter %s (equivalent, lesser or greater)"};
inline constexpr exporta::FRASE bordaRuim = {"Borda invalida %s (corrige, inclui ou exclui)",
                                             "Invalid border %s (correct, include or exclude)"};
inline constexpr exporta::FRASE limiarRuim = {"Limiar fora de 0 a 1: %g",
                                              "Threshold outside 0 to 1: %g"};
inline constexpr exporta::FRASE pesoRuim = {"Peso invalido %s (numero, area ou volume)",
                                            "Invalid weight %s (number, area or volume)"};
inline constexpr exporta::FRASE peneirasRuins = {
    "Peneiras invalidas %s (aberturas crescentes, acima de 0, como 0.5,1,2,4)",
    "Invalid sieves %s (ascending apertures above 0, such as 0.5,1,2,4)"};
inline constexpr exporta::FRASE processosRuins = {"Numero de processos invalido %s (1 a 1024)",
                                                  "Invalid number of processes %s (1 to 1024)"};
inline constexpr exporta::FRASE amostraRuim = {"Amostra invalida %s (1 a 1000)",
                                               "Invalid sample %s (1 to 1000)"};
inline constexpr exporta::FRASE saidaVazia = {"Pasta de saida sem nome",
                                              "Output folder without a name"};
inline constexpr exporta::FRASE semFotos = {"Nenhuma fotografia em %s", "No photograph in %s"};
inline constexpr exporta::FRASE kernelIlegivel = {"%s inexistente ou ilegivel (%s)",
                                                  "%s can't be read (%s)"};
inline constexpr exporta::FRASE semGrupo = {
    "Nenhum grupo de kernels (falta uma forma com pelo menos duas escalas)",
    "No group of kernels (a shape of at least two scales is missing)"};
inline constexpr exporta::FRASE saidaRuim = {"Nada pode ser feito na pasta de saida %s (%s)",
                                             "Nothing can be made in output folder %s (%s)"};
inline constexpr exporta::FRASE saidaEmUso = {
    "A pasta de saida %s esta em uso por outro vorplex-lote",
    "Output folder %s is in use by another vorplex-lote"};

// A photograph. The steps stand before "..." or before the way in which they ended.
inline constexpr exporta::FRASE passoLeitura = {"Leitura da fotografia",
                                                "Reading of the photograph"};
inline constexpr exporta::FRASE passoKernels = {"Leitura dos kernels", "Reading of the kernels"};
inline constexpr exporta::FRASE passoProcura = {"Procura com os kernels #%d-#%d",
                                                "Search with kernels #%d-#%d"};
inline constexpr exporta::FRASE passoOrdem = {"Ordenacao dos maximos locais",
                                              "Ordering of the local maxima"};
inline constexpr exporta::FRASE passoFiltro = {"Filtro", "Filter"};
inline constexpr exporta::FRASE passoAjuste = {"Ajuste dos graos", "Fitting of the grains"};
inline constexpr exporta::FRASE passoAreas = {"Tabelas de areas", "Tables of areas"};
inline constexpr exporta::FRASE passoTraco = {"Desenho dos contornos", "Drawing of the outlines"};
inline constexpr exporta::FRASE passoMedida = {"Medida dos graos", "Measuring of the grains"};
inline constexpr exporta::FRASE fotoIlegivel = {"Fotografia inexistente ou ilegivel",
                                                "No such photograph, or it can't be read"};
inline constexpr exporta::FRASE mudou = {"A fotografia mudou durante o processamento",
                                         "The photograph changed while it was processed"};
inline constexpr exporta::FRASE ocupada = {"%s existe e nao foi feita por vorplex-lote",
                                           "%s exists and was not made by vorplex-lote"};
inline constexpr exporta::FRASE semNome = {"Os resultados nao puderam tomar o nome %s",
                                           "The results could not take the name %s"};
inline constexpr exporta::FRASE porSinal = {"%s terminou pelo sinal %d (%s)",
                                            "%s ended by signal %d (%s)"};
inline constexpr exporta::FRASE porEstado = {"%s terminou com estado %d",
                                             "%s ended with status %d"};
inline constexpr exporta::FRASE linhaFeita = {"[%s/%s] %s: %s graos, %.2f MP em %.2f s",
                                              "[%s/%s] %s: %s grains, %.2f MP in %.2f s"};
inline constexpr exporta::FRASE linhaPronta = {"[%s/%s] %s: %s graos, ja pronta",
                                               "[%s/%s] %s: %s grains, done already"};
inline constexpr exporta::FRASE linhaFalhou = {"[%s/%s] %s: FALHOU: %s", "[%s/%s] %s: FAILED: %s"};

// The run.
inline constexpr exporta::FRASE inicio = {"Fotografias: %s, ao mesmo tempo: %d",
                                          "Photographs: %s, at a time: %d"};
inline constexpr exporta::FRASE barra = {"%s/%s, falhas: %s, %.1f MP/s, resta %s",
                                         "%s/%s, failed: %s, %.1f MP/s, %s left"};
inline constexpr exporta::FRASE juntando = {"Escrevendo tabelas e relatorio...",
                                            "Writing tables and report..."};
inline constexpr exporta::FRASE fim = {
    "Fotografias: %s (feitas %s, ja prontas %s, falhas %s); graos: %s",
    "Photographs: %s (done %s, done already %s, failed %s); grains: %s"};
inline constexpr exporta::FRASE corrigidos = {
    "Corrigido a mao: rejeitados %s, trazidos de volta %s, desenhados %s, sem par %s",
    "Corrected by hand: rejected %s, brought back %s, drawn %s, without a match %s"};
inline constexpr exporta::FRASE corrigidasAusentes = {
    "Aviso: ha correcoes de %s fotografias que nao estao nesta corrida",
    "Warning: there are corrections of %s photographs that are not in this run"};
inline constexpr exporta::FRASE repetiu = {"Repetido: %s arquivos com os mesmos bytes",
                                           "Repeated: %s files of the same bytes"};
inline constexpr exporta::FRASE naoRepetiu = {"Difere (antes / agora):", "Differs (then / now):"};
inline constexpr exporta::FRASE semEscala = {"Sem escala: todas as medidas em pixels (px)",
                                             "No scale: all measures in pixels (px)"};
inline constexpr exporta::FRASE resultados = {"Resultados em %s", "Results in %s"};
inline constexpr exporta::FRASE falharam = {"Falharam:", "Failed:"};
inline constexpr exporta::FRASE aviso = {"Aviso: %s", "Warning: %s"};
inline constexpr exporta::FRASE tabelasFalharam = {"Tabelas e relatorio nao foram escritos: %s",
                                                   "Tables and report were not written: %s"};
inline constexpr exporta::FRASE interrompido = {
    "Interrompido; o mesmo comando continua de onde parou",
    "Interrupted; the same command goes on from here"};

// What would be done.
inline constexpr exporta::FRASE kernelsLidos = {"Kernels: %s", "Kernels: %s"};
inline constexpr exporta::FRASE aProcurar = {"%s: a procurar", "%s: to be searched"};
inline constexpr exporta::FRASE aEscolher = {"%s: a escolher e medir, a procura serve",
                                             "%s: to be chosen and measured, the search serves"};
inline constexpr exporta::FRASE aMedir = {"%s: a medir, a procura e a escolha servem",
                                          "%s: to be measured, search and choice serve"};
inline constexpr exporta::FRASE jaPronta = {"%s: ja pronta", "%s: done already"};
inline constexpr exporta::FRASE aFalhar = {"%s: falharia: %s", "%s: would fail: %s"};
inline constexpr exporta::FRASE nadaFeito = {"Nada foi feito", "Nothing was done"};

inline constexpr exporta::FRASE tituloDaPagina = {"Granulometria de %s", "Granulometry of %s"};

}  // namespace falas

}  // namespace batch
