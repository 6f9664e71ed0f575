#pragma once

#include <cstddef>
#include <cstdio>
#include <string>

#include "export/idioma.h"

namespace batch {

// How far the run is, on standard output or another: on a terminal a bar that is drawn over and
// over, elsewhere a line for each photograph.
struct AVANCO {
  exporta::IDIOMA idioma = exporta::IDIOMA::pt;
  bool quieto = false;
  std::FILE* saida = stdout;
  bool terminal = false;
  std::size_t total = 0;
  std::size_t acabadas = 0;
  std::size_t falharam = 0;
  double pixelsTotal = 0;    // as far as known beforehand
  double pixelsVistos = 0;   // of the photographs that have ended, known beforehand
  double pixelsEmCurso = 0;  // done of those that are running, likewise
  double emCurso = 0;        // the same in photographs
  double pixelsFeitos = 0;   // searched in this run
  double inicio = 0;         // seconds, of the same clock as `agora`
};

// Seconds since some moment; never goes back.
double agora();

// Writes a line, above the bar where there is one.
void dizLinha(const AVANCO& a, const std::string& linha);

// Draws the bar.
void mostra(const AVANCO& a);

// Takes the bar away.
void apaga(const AVANCO& a);

// The bar's text: "[####      ] 12/30, falhas: 1, 3.2 MP/s, resta 2 min". What is left is
// guessed from the pixels still to come, or from the number of photographs where those are unknown.
std::string barra(const AVANCO& a, double decorridos);

// "45 s", "12 min", "3 h 05 min".
std::string duracao(double segundos);

}  // namespace batch
