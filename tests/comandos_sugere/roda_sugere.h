#pragma once

#include <string>
#include <vector>

// What a run of vorplex-sugere did.
struct CORRIDA {
  int estado = -1;  // exit status, or -1 when a signal ended it
  std::string saida;
  std::string erro;
};

// Runs it in the current directory. `mais` is shell text behind the command, such as "<&-" or
// ">/dev/full"; `antes` goes before it, such as "ulimit -f 1;" or
// "LC_ALL=en_US.UTF-8" (else LC_ALL is C).
CORRIDA rodaSugere(const std::vector<std::string>& args, const std::string& mais = "",
                   const std::string& antes = "");
