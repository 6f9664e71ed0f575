#pragma once

#include <functional>

// How a process ends: the only place where an error is printed.

namespace fim {

// Carries out all the work of a process and returns its exit status: that which `trabalho`
// returns, or 1 after an error. Standard output is flushed first, then one line goes to standard
// error, on a terminal with "?" for control characters, of which the words of a file may hold any:
//   pim::ERRO        its message
//   std::bad_alloc   "Erro: Memoria insuficiente"
//   cv::Exception    "Erro: " and what the library says
// A pim::ASSERCAO ends the process as a failed assertion of the C library does: standard output is
// flushed, the line "PROGRAM: arquivo:linha: funcao: Assertion `expressao' failed." goes to
// standard error and the process aborts. After the line of a pim::CONTAGEM_IMPOSSIVEL, the
// std::length_error of a vector asked for such a length is thrown. Other exceptions pass.
int executa(const std::function<int()>& trabalho);

}  // namespace fim
