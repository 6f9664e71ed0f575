#pragma once

#include <string>

namespace pim {

// Reports a fatal error: flushes standard output, writes `a`, `b` and `c` one after the other as
// one line on standard error and ends the process with exit status 1. Never returns. On a terminal
// control characters show as "?": the words of a file may hold any.
[[noreturn]] void erro(const std::string& a, const std::string& b = "", const std::string& c = "");

// Where an assertion stands: the source name, line and full signature that its text reports.
struct LOCAL {
  const char* arquivo;
  unsigned linha;
  const char* funcao;
};

// Ends the process as a failed assertion of the C library does: standard output is flushed, the
// line "PROGRAM: arquivo:linha: funcao: Assertion `expressao' failed." goes to standard error and
// the process aborts.
[[noreturn]] void assercaoFalhou(const char* expressao, const LOCAL& local);

// An assertion that release builds keep. `expressao` is the text shown when `valida` is false.
inline void afirma(bool valida, const char* expressao, const LOCAL& local) {
  if (!valida) assercaoFalhou(expressao, local);
}

}  // namespace pim
