#include "draw/extrai.h"

#include <cstdio>
#include <string>
#include <vector>

#include "draw/amostra.h"
#include "kernels/formas.h"
#include "pim/erro.h"
#include "pim/imagem.h"
#include "pim/texto.h"

namespace {

// Pixels of all samples of a run, several minutes' work. Samples of grains that do not overlap, at
// any sensible zoom, have as many pixels as a few dozen photographs: less than a tenth of this.
constexpr double maximoDePixels = 34359738368.0;

// A photograph, its detections and the file that they come from.
struct FOTO {
  cv::Mat_<pim::VEC3B> imagem;
  std::vector<MAXLOCAL> v;
  std::string lista;
  double fatorZoom = 1;

  bool tem(int k) const { return k >= 0 && static_cast<std::size_t>(k) < v.size(); }

  // Detection k at the size of its sample.
  MAXLOCAL ampliada(int k) const {
    MAXLOCAL m = v[static_cast<std::size_t>(k)];
    m.d1 *= fatorZoom;
    m.d2 *= fatorZoom;
    return m;
  }

  void extrai(int k, const std::string& nome) const {
    exigeDesenhavel(ampliada(k), lista, static_cast<std::size_t>(k));
    pim::imp(extraiAm(v[static_cast<std::size_t>(k)], imagem, fatorZoom), nome);
  }
};

// Ends with an error before the first sample when all of them would be too much. An index or shape
// that is an error of its own ends the sum, as it will end the run.
void exigeQueCaibam(int argc, char** argv, const FOTO& foto) {
  const int quantas = argc > 3 ? argc - 3 : static_cast<int>(foto.v.size());
  double pixels = 0;
  for (int i = 0; i < quantas; ++i) {
    int k = i;
    if (argc > 3 && (!pim::paraNumero(argv[3 + i], k) || !foto.tem(k))) return;
    const MAXLOCAL m = foto.ampliada(k);
    const double lado = ladoDaMascara(m.forma, m.d1, m.d2);
    if (lado > maiorLado) return;
    pixels += lado * lado;
    if (pixels > maximoDePixels) pim::erro("Erro: Amostras grandes demais em ", foto.lista);
  }
}

// Calls `acao(k)` for each index on the command line, in that order, or for the whole list when
// there is none. A bad index is met only after those before it were done.
template <class ACAO>
void paraCadaEscolhido(int argc, char** argv, const FOTO& foto, ACAO acao) {
  exigeQueCaibam(argc, argv, foto);
  for (int i = 3; i < argc; ++i) {
    int k = 0;
    pim::convArg(k, argv[i]);
    if (!foto.tem(k)) pim::erro("Erro: Indice fora da lista ", argv[i]);
    acao(k);
  }
  for (int k = 0; argc == 3 && foto.tem(k); ++k) acao(k);
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
  FOTO foto;
  pim::convArg(foto.fatorZoom, argv[2]);
  std::printf("Lendo %s\n", argv[1]);
  pim::le(foto.imagem, argv[1]);

  const std::string base = pim::semSufixo(argv[1]);
  foto.lista = base + ".ho2";
  std::printf("Lendo %s\n", foto.lista.c_str());
  leMaxLocais(foto.v, foto.lista);
  std::printf("Numero de maximos locais originais=%u\n", static_cast<unsigned>(foto.v.size()));

  paraCadaEscolhido(argc, argv, foto,
                    [&](int k) { foto.extrai(k, base + cv::format("%04d.png", k)); });
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
  FOTO foto;
  pim::convArg(foto.fatorZoom, argv[2]);
  std::printf("Lendo %s\n", argv[1]);
  pim::le(foto.imagem, argv[1]);

  const std::string base = pim::semSufixo(argv[1]);
  foto.lista = base + ".ho2";
  leMaxLocais(foto.v, foto.lista);
  cv::Mat_<unsigned char> classes;
  pim::le(classes, base + ".mat");

  paraCadaEscolhido(argc, argv, foto, [&](int k) {
    foto.extrai(k, cv::format("%02d-%04d.png", classe(classes, k), k));
  });
}
