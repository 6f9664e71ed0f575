#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "export/idioma.h"

namespace batch {

// Processes. Each belongs to the one that started it: whatever way that one ends, even by SIGKILL,
// the system ends those below it.

// How a process ended, and the last 64 KiB of what it said on both outputs.
struct TERMINO {
  int estado = -1;  // exit status, or -1 when a signal ended it
  int sinal = 0;    // that signal, or 0
  std::string fala;
};

// What to do in processes of their own, and what to be told.
struct TAREFAS {
  std::size_t quantas = 0;
  int aoMesmoTempo = 1;
  exporta::IDIOMA idioma = exporta::IDIOMA::pt;  // of their errors
  std::function<void(std::size_t)> comeca;       // before the new process; may be empty
  std::function<int(std::size_t)> faz;           // in the new process; returns its exit status
  std::function<void(std::size_t, const TERMINO&)> acabou;
  std::function<void(std::size_t, double)> andou;  // how far a task is, 0 to 1; may be empty
  std::function<void()> passaTempo;                // at least once a second; may be empty
};

// Makes SIGINT, SIGTERM and SIGHUP wait until `executaTarefas` looks at them, unless they are
// ignored already (as by nohup). Writing to a closed pipe no longer ends the process.
void preparaSinais();

// Runs the tasks in order, so many at a time; their standard input is empty. An exception ends its
// task as fim::executa says, or else with a message and exit status 1. False when a signal
// interrupted it; then, and when it throws, no task is left running.
bool executaTarefas(const TAREFAS& t);

// Says within a task what it is about to do, as a line that ends in "...".
void anuncia(const std::string& passo);

// Says within a task how far it is, from 0 to 1: to `andou`, and not in what it said.
void anunciaParte(double parte);

// Why a process did not end well, in the language: the last line that began with "Erro", without
// "Erro: ", else what it had announced last, or `quem` when that is nothing, and its signal or
// status. Without control characters; of a very long line, beginning and end.
std::string motivo(const TERMINO& t, const std::string& quem, exporta::IDIOMA idioma);

// For showing on one line: control characters become "?", invalid UTF-8 U+FFFD.
std::string emUmaLinha(const std::string& texto);

}  // namespace batch
