#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "fim/fim.h"
#include "mapa/comando.h"
#include "pim/erro.h"

int main(int argc, char** argv) {
  cv::setNumThreads(1);
  return fim::executa([&] {
    try {
      return mapa::comando(std::vector<std::string>(argv + 1, argv + argc), VORPLEX_VERSAO);
    } catch (const pim::CONTAGEM_IMPOSSIVEL& e) {
      pim::erro(e.what());  // an error like all others, where the sub-programs abort
    }
  });
}
