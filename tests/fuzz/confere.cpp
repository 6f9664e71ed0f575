#include "confere.h"

#include <unistd.h>

#include <cstdlib>

namespace {

// Standard error as it was at the start: the fuzzer may close it later.
const int saida = dup(STDERR_FILENO);

}  // namespace

void confere(bool valida, const std::string& texto) {
  confere(valida, texto.c_str());
}

void confere(bool valida, const char* texto) {
  if (valida) return;
  const std::string linha = std::string("\nFALHA: ") + texto + "\n";
  if (write(saida, linha.data(), linha.size()) < 0) std::_Exit(EXIT_FAILURE);
  std::abort();
}
