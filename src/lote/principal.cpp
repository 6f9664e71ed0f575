#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "batch/lote.h"
#include "fim/fim.h"

int main(int argc, char** argv) {
  cv::setNumThreads(1);  // a process with threads can't be forked at will
  return fim::executa(
      [&] { return batch::lote(std::vector<std::string>(argv + 1, argv + argc), VORPLEX_VERSAO); });
}
