#include "draw/traca.h"

#include <cstddef>
#include <cstdio>
#include <utility>
#include <vector>

#include "draw/formas.h"
#include "pim/erro.h"
#include "pim/imagem.h"

namespace {

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
draw::TRACOS leOpcoes(int argc, char** argv) {
  draw::TRACOS o;
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

namespace draw {

cv::Mat_<pim::VEC3B> traca(cv::Mat_<pim::VEC3B> imagem, const std::vector<MAXLOCAL>& v,
                           const TRACOS& tracos, const std::string& nome) {
  for (std::size_t k = 0; k < v.size(); ++k) exigeDesenhavel(v[k], nome, k);
  imagem = tracaFormas(imagem, v, tracos.contornoBold, pim::VEC3B(0, 0, 255));
  if (tracos.indices) imagem = tracaIndices(imagem, v);
  if (tracos.centros) imagem = tracaCentros(imagem, v, tracos.centroBold);
  return imagem;
}

}  // namespace draw

void Traca(int argc, char** argv) {
  exigeArgumentos(argc);
  const draw::TRACOS tracos = leOpcoes(argc, argv);
  cv::Mat_<pim::VEC3B> imagem;
  pim::le(imagem, argv[1]);
  std::vector<MAXLOCAL> v;
  leMaxLocais(v, argv[2]);
  pim::imp(draw::traca(std::move(imagem), v, tracos, argv[2]), argv[3]);
}
