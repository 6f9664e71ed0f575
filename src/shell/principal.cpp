#include <cstdio>
#include <opencv2/core.hpp>

#include "fim/fim.h"
#include "pim/erro.h"
#include "shell/despacho.h"

int main(int argc, char** argv) {
  std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);  // nothing said is lost when the process aborts
  cv::setNumThreads(1);
  return fim::executa([&] {
    const int estado = despacha(argc, argv);
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
      pim::erro("Erro gravacao da saida padrao");
    }
    return estado;
  });
}
