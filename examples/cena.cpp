#include <algorithm>
#include <cmath>
#include <cstdio>

#include "examples/cenario.h"
#include "fim/fim.h"
#include "pim/erro.h"
#include "pim/imagem.h"
#include "pim/texto.h"

namespace {

void exigeArgumentos(int argc) {
  if (argc == 3 || (argc >= 5 && argc <= 7)) return;
  std::puts("Cena cena.pgm cena.csv [linhas colunas] [graos] [semente]");
  std::puts("  Desenha graos escuros sobre fundo claro e grava a verdade em cena.csv");
  std::puts("  Default: linhas=768 colunas=1024 semente=1 graos=200 por 1024x768 pixels");
  pim::erro("Erro: Numero de argumentos invalido");
}

CENARIO leArgumentos(int argc, char** argv) {
  CENARIO cenario;
  if (argc < 5) return cenario;
  pim::convArg(cenario.linhas, argv[3]);
  pim::convArg(cenario.colunas, argv[4]);
  const double area = static_cast<double>(cenario.linhas) * cenario.colunas;
  if (std::min(cenario.linhas, cenario.colunas) < 64 || area > 1e9) {
    pim::erro("Erro: Tamanho invalido ", argv[3], std::string(" ") + argv[4]);
  }
  cenario.graos = static_cast<int>(std::lround(200 * area / (1024.0 * 768.0)));
  if (argc >= 6) pim::convArg(cenario.graos, argv[5]);
  int semente = 1;
  if (argc >= 7) pim::convArg(semente, argv[6]);
  cenario.semente = static_cast<std::uint64_t>(semente);
  return cenario;
}

int cena(int argc, char** argv) {
  exigeArgumentos(argc);
  const CENARIO cenario = leArgumentos(argc, argv);
  const std::vector<GRAO> graos = povoa(cenario);
  pim::imp(pinta(cenario, graos), argv[1]);
  gravaGraos(graos, argv[2]);
  std::printf("Numero de graos=%u\n", static_cast<unsigned>(graos.size()));
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  return fim::executa([&] { return cena(argc, argv); });
}
