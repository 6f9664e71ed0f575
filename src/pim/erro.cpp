#undef NDEBUG  // keeps the declaration of __assert_fail in release builds
#include "pim/erro.h"

#include <unistd.h>

#include <cassert>
#include <cstdio>
#include <cstdlib>

#include "pim/texto.h"

namespace pim {

void erro(const std::string& a, const std::string& b, const std::string& c) {
  std::fflush(stdout);
  std::string linha = a + b + c;
  if (isatty(STDERR_FILENO) != 0) linha = semControles(linha);
  linha += '\n';
  std::fwrite(linha.data(), 1, linha.size(), stderr);
  std::exit(EXIT_FAILURE);
}

void assercaoFalhou(const char* expressao, const LOCAL& local) {
  std::fflush(stdout);
  __assert_fail(expressao, local.arquivo, local.linha, local.funcao);
}

}  // namespace pim
