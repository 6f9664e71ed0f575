#pragma once

#include <string>
#include <vector>

// What a run of the real executable did.
struct EXECUCAO {
  int estado = -1;    // exit status, or -1 when a signal ended it
  int sinal = 0;      // that signal, or 0
  std::string saida;  // standard output
  std::string erro;   // standard error
};

// Runs Vorplex with `args` in the current directory, standard input empty. `entorno` holds
// NAME=VALUE settings added to the environment. A run longer than `segundos` is killed (SIGKILL).
EXECUCAO executa(const std::vector<std::string>& args, const std::vector<std::string>& entorno = {},
                 int segundos = 60);

// The standard output of a run without the banner and without the line of the elapsed time.
std::string miolo(const EXECUCAO& e);

inline const std::string titulo =
    "< Vorplex.exe: Programas para granulometria multi-formas v1.23>\n"
    "_______________________________________________________________________________\n";
