#pragma once

#include <string>
#include <vector>

// What a run of the real executable did.
struct EXECUCAO {
  int estado = -1;    // exit status, or -1 when a signal ended it
  int sinal = 0;      // that signal, or 0
  std::string saida;  // standard output
  std::string erro;   // standard error
  double cpu = 0;     // processor time, seconds
  long memoria = 0;   // largest amount of memory that it held at once, bytes
};

// Runs Vorplex with `args` in the current directory, standard input empty. `entorno` holds
// NAME=VALUE settings added to the environment. A run longer than `segundos` is killed (SIGKILL).
EXECUCAO executa(const std::vector<std::string>& args, const std::vector<std::string>& entorno = {},
                 int segundos = 60);

// The same as a user who owns the files but may not open what their permissions forbid, as the
// superuser may.
EXECUCAO executaSemPoderes(const std::vector<std::string>& args);

// Whether that can be done here: not for a superuser who can't give up powers.
bool perdePoderes();

// The standard output of a run without the banner and without the line of the elapsed time.
std::string miolo(const EXECUCAO& e);

inline const std::string titulo =
    "< Vorplex.exe: Programas para granulometria multi-formas v" VORPLEX_VERSAO
    ">\n"
    "_______________________________________________________________________________\n";
