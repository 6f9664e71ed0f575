#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "fim/fim.h"
#include "proposta/comando.h"

int main(int argc, char** argv) {
  cv::setNumThreads(1);
  return fim::executa([&] {
    return proposta::comando(std::vector<std::string>(argv + 1, argv + argc), VORPLEX_VERSAO);
  });
}
