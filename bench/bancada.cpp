// Times the fast operations against their plain forms, all in one run, and prints a table.
#include <cstdio>
#include <vector>

#include "bench/ajustes.h"
#include "bench/corridas.h"
#include "bench/custo.h"
#include "bench/partes.h"
#include "motor/avaliacao/avaliacao.h"
#include "opencv2/core.hpp"

int main() {
  cv::setNumThreads(1);
  std::fprintf(stderr, "Instruction set: %s\n", motor::avaliadores().front().nome);
  corre({"cena", "c12.pgm", "c12.csv", "3000", "4000"});
  // Whole runs first: a child's peak memory counts that of the process it comes from.
  const std::vector<LINHA> corridas = medeCorridas();
  const double bytes = bytesPorPixel("c12.pgm", 3000.0 * 4000.0);
  const std::vector<LINHA> ajustes = medeAjustes();
  std::vector<LINHA> linhas = medePartes("c12.pgm");
  linhas.insert(linhas.end(), corridas.begin(), corridas.end());
  linhas.insert(linhas.end(), ajustes.begin(), ajustes.end());

  std::printf("Instruction set: %s\n\n", motor::avaliadores().front().nome);
  std::printf("| Work | plain | fast | ratio | |\n|---|---|---|---|---|\n");
  for (const LINHA& l : linhas) {
    if (l.simples > 0) {
      std::printf("| %s | %.2f s | %.2f s | %.1f | %s |\n", l.trabalho.c_str(), l.simples, l.rapida,
                  l.simples / l.rapida, l.nota.c_str());
    } else {
      std::printf("| %s | | %.4f s | | %s |\n", l.trabalho.c_str(), l.rapida, l.nota.c_str());
    }
  }

  std::printf("\nPeak memory of correla on 12 MP: %.1f bytes a pixel\n\n", bytes);
  std::printf("| Search for maxima | time | ns per pixel and kernel |\n|---|---|---|\n");
  for (const CUSTO& c : medeCustos()) {
    std::printf("| %s | %.2f s | %.2f |\n", c.trabalho.c_str(), c.segundos, c.nanossegundos);
  }
  return 0;
}
