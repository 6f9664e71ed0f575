#include <new>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "batch/lote.h"
#include "pim/erro.h"

int main(int argc, char** argv) {
  cv::setNumThreads(1);  // a process with threads can't be forked at will
  try {
    return batch::lote(std::vector<std::string>(argv + 1, argv + argc), VORPLEX_VERSAO);
  } catch (const std::bad_alloc&) {
    pim::erro("Erro: Memoria insuficiente");
  }
}
