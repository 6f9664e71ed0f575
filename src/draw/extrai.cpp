#include "draw/extrai.h"

#include <cstdio>
#include <string>
#include <vector>

#include "draw/amostra.h"
#include "pim/erro.h"
#include "pim/imagem.h"
#include "pim/texto.h"

namespace {

// Calls `acao(k)` for each index on the command line, in that order, or for the whole list when
// there is none. A bad index is met only after those before it were done.
template <class ACAO>
void paraCadaEscolhido(int argc, char** argv, std::size_t quantos, ACAO acao) {
  for (int i = 3; i < argc; ++i) {
    int k = 0;
    pim::convArg(k, argv[i]);
    if (k < 0 || static_cast<std::size_t>(k) >= quantos) {
      pim::erro("Erro: Indice fora da lista ", argv[i]);
    }
    acao(k);
  }
  for (int k = 0; argc == 3 && k < static_cast<int>(quantos); ++k) acao(k);
}

void extrai(const cv::Mat_<pim::VEC3B>& imagem, const std::vector<MAXLOCAL>& v, int k,
            double fatorZoom, const std::string& nome) {
  pim::imp(extraiAm(v[static_cast<std::size_t>(k)], imagem, fatorZoom), nome);
}

// The class of detection k: element k of the class image in row-major order.
int classe(const cv::Mat_<unsigned char>& classes, int k) {
  if (static_cast<std::size_t>(k) >= classes.total()) {
    pim::erro("Erro: Indice fora da imagem de classes ", std::to_string(k));
  }
  return classes(k / classes.cols, k % classes.cols);
}

}  // namespace

void ExtraiAm(int argc, char** argv) {
  if (argc < 3) {
    std::puts("extraiAm: Extrai amostras dentro das formas localizadas");
    std::puts("extraiAm imagem.jpg fatorZoom [f0 f1 ...]");
    std::puts("  Le imagem.jpg + imagem.ho2 e imp imagem????.png");
    pim::erro("Erro: Numero de argumentos invalido");
  }
  double fatorZoom = 1;
  pim::convArg(fatorZoom, argv[2]);
  std::printf("Lendo %s\n", argv[1]);
  cv::Mat_<pim::VEC3B> imagem;
  pim::le(imagem, argv[1]);

  const std::string base = pim::semSufixo(argv[1]);
  std::printf("Lendo %s.ho2\n", base.c_str());
  std::vector<MAXLOCAL> v;
  leMaxLocais(v, base + ".ho2");
  std::printf("Numero de maximos locais originais=%u\n", static_cast<unsigned>(v.size()));

  paraCadaEscolhido(argc, argv, v.size(), [&](int k) {
    extrai(imagem, v, k, fatorZoom, base + cv::format("%04d.png", k));
  });
}

void ExtraiCla(int argc, char** argv) {
  if (argc < 3) {
    std::puts("extraiCla: Extrai amostras classificadas dentro das formas localizadas");
    std::puts("extraiCla imagem.jpg fatorZoom [f0 f1 ...]");
    std::puts("  Le imagem.jpg+imagem.ho2+imagem.mat e imp CC-FFFF.png");
    std::puts("  CC: Classificacao");
    std::puts("  FFFF: Identificao da forma");
    pim::erro("Erro: Numero de argumentos invalido");
  }
  double fatorZoom = 1;
  pim::convArg(fatorZoom, argv[2]);
  std::printf("Lendo %s\n", argv[1]);
  cv::Mat_<pim::VEC3B> imagem;
  pim::le(imagem, argv[1]);

  const std::string base = pim::semSufixo(argv[1]);
  std::vector<MAXLOCAL> v;
  leMaxLocais(v, base + ".ho2");
  cv::Mat_<unsigned char> classes;
  pim::le(classes, base + ".mat");

  paraCadaEscolhido(argc, argv, v.size(), [&](int k) {
    extrai(imagem, v, k, fatorZoom, cv::format("%02d-%04d.png", classe(classes, k), k));
  });
}
