#pragma once

#include <sys/types.h>

#include <map>
#include <string>
#include <vector>

#include "apoio/terminal.h"

// What a run of vorplex-lote did.
struct CORRIDA {
  int estado = -1;  // exit status, or -1 when a signal ended it
  int sinal = 0;
  std::string saida;
  std::string erro;
};

// How it is run.
struct MODO {
  bool semPoderes = false;     // as a user whom permissions bind; see apoio/executa.h
  long maiorArquivo = 0;       // bytes that a file may grow to; 0: no limit
  bool terminal = false;       // standard output is a terminal
  std::string entrada;         // a file that is its standard input
  std::string ambiente = "C";  // what LC_ALL says
};

CORRIDA rodaLote(const std::vector<std::string>& args, const MODO& modo = {});

// The same in two steps, for those who want to do something to it meanwhile.
struct LANCADA {
  pid_t pid = -1;
  std::string saida;  // files with what it says
  std::string erro;
  TERMINAL terminal;
};
LANCADA lancaLote(const std::vector<std::string>& args, const MODO& modo = {});
CORRIDA esperaLote(const LANCADA& lancada);

// What was said on standard error, without the warnings about the numbers.
std::string semAvisos(const std::string& erro);

// Every file below `pasta`, hidden ones too, and its content.
std::map<std::string, std::string> arvore(const std::string& pasta);

// The names in `pasta`, hidden ones too, sorted.
std::vector<std::string> dentroDe(const std::string& pasta);
