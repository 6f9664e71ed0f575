#include <cstdio>
#include <new>
#include <opencv2/core.hpp>

#include "pim/erro.h"
#include "shell/despacho.h"

// Errors of the libraries that no sub-program foresaw become messages like all others. Exceptions
// of the program's own (a length or an index out of range) are left to end the process.
int main(int argc, char** argv) {
  std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);  // nothing said is lost when the process aborts
  cv::setNumThreads(1);
  try {
    const int estado = despacha(argc, argv);
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
      pim::erro("Erro gravacao da saida padrao");
    }
    return estado;
  } catch (const std::bad_alloc&) {
    pim::erro("Erro: Memoria insuficiente");
  } catch (const cv::Exception& e) {
    pim::erro("Erro: ", e.err.empty() ? e.what() : e.err);
  }
}
