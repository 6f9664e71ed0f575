#include "draw/traca.h"

#include <cstddef>
#include <cstdio>
#include <vector>

#include "draw/formas.h"
#include "pim/erro.h"
#include "pim/imagem.h"

namespace {

struct OPCOES {
  bool contornoBold = false;
  bool indices = false;
  bool centros = false;
  bool centroBold = false;
};

void exigeArgumentos(int argc) {
  if (argc >= 4) return;
  std::puts("Traca imagem.ppm imagem.ho1 saida.ppm [c|C] [i] [p|P]");
  std::puts("  Mostra os maximos locais (ho1 ou ho2) sem filtrar");
  std::puts("  c=contorno C=contorno bold");
  std::puts("  i=indice da forma");
  std::puts("  p=ponto central P=ponto bold");
  pim::erro("Erro: Numero de argumentos invalido");
}

// Only the first character of each argument counts; later ones override earlier ones.
OPCOES leOpcoes(int argc, char** argv) {
  OPCOES o;
  for (int i = 4; i < argc; ++i) {
    const char letra = argv[i][0];
    if (letra == 'c' || letra == 'C') o.contornoBold = letra == 'C';
    if (letra == 'i') o.indices = true;
    if (letra == 'p' || letra == 'P') {
      o.centros = true;
      o.centroBold = letra == 'P';
    }
  }
  return o;
}

}  // namespace

void Traca(int argc, char** argv) {
  exigeArgumentos(argc);
  const OPCOES opcoes = leOpcoes(argc, argv);
  cv::Mat_<pim::VEC3B> imagem;
  pim::le(imagem, argv[1]);
  std::vector<MAXLOCAL> v;
  leMaxLocais(v, argv[2]);
  for (std::size_t k = 0; k < v.size(); ++k) exigeDesenhavel(v[k], argv[2], k);
  imagem = tracaFormas(imagem, v, opcoes.contornoBold, pim::VEC3B(0, 0, 255));
  if (opcoes.indices) imagem = tracaIndices(imagem, v);
  if (opcoes.centros) imagem = tracaCentros(imagem, v, opcoes.centroBold);
  pim::imp(imagem, argv[3]);
}
