#include "filter/filtra.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <set>
#include <string>
#include <vector>

#include "detect/maxlocal.h"
#include "draw/formas.h"
#include "filter/filtinter.h"
#include "pim/erro.h"
#include "pim/imagem.h"
#include "pim/texto.h"

namespace {

void exigeArgumentos(int argc) {
  if (argc >= 4) return;
  std::puts("Filtra imagem.pgm imagem.ho1 saida.ppm|saida.ho2 parametros");
  std::puts("  parametros: default   minCorrDef maxInterDef (0.1 e 0.3)");
  std::puts("              circulo   minCorrCir maxInterCir");
  std::puts("              retangulo minCorrRet maxInterRet");
  std::puts("              quadrado  minCorrQua maxInterQua");
  std::puts("              elipse    minCorrEli maxInterEli");
  pim::erro("Erro: Numero de argumentos invalido");
}

void leDefault(pim::ISTR& s, PARAMFILTRA& p) {
  pim::leNum(s, p.minCorrDef);
  p.minCorrCir = p.minCorrRet = p.minCorrQua = p.minCorrEli = p.minCorrDef;
  pim::leNum(s, p.maxInterDef);
  p.maxInterCir = p.maxInterRet = p.maxInterQua = p.maxInterEli = p.maxInterDef;
}

void lePar(pim::ISTR& s, double& minCorr, double& maxInter) {
  pim::leNum(s, minCorr);
  pim::leNum(s, maxInter);
}

void completa(PARAMFILTRA& p) {
  for (double* minimo : {&p.minCorrCir, &p.minCorrRet, &p.minCorrQua, &p.minCorrEli}) {
    if (*minimo < 0) *minimo = p.minCorrDef;
  }
  for (double* maximo : {&p.maxInterCir, &p.maxInterRet, &p.maxInterQua, &p.maxInterEli}) {
    if (*maximo < 0) *maximo = p.maxInterDef;
  }
}

// Pixels of the masks of all distinct shapes of a list, each drawn at least once: half a minute's
// work. A search finds at most as many shapes as it has kernels and levels, so that a list of its
// own stays below a tenth of this.
constexpr double maximoDePixels = 34359738368.0;

double minimoDe(const PARAMFILTRA& p, char forma) {
  switch (forma) {
    case 'c':
      return p.minCorrCir;
    case 'r':
      return p.minCorrRet;
    case 'q':
      return p.minCorrQua;
    default:
      return p.minCorrEli;
  }
}

// Ends with an error when a shape that the filter will draw is too large, or all are too much.
void exigeDesenhaveis(const std::vector<MAXLOCAL>& v, const PARAMFILTRA& p,
                      const std::string& nome) {
  std::set<std::array<std::uint64_t, 4>> vistas;  // bits, so that NaN is a value too
  double pixels = 0;
  for (std::size_t k = 0; k < v.size(); ++k) {
    const MAXLOCAL& m = v[k];
    if (static_cast<double>(m.correl) < minimoDe(p, m.forma)) continue;
    const double lado = exigeDesenhavel(m, nome, k);
    const bool nova =
        lado > 0 &&
        vistas
            .insert({static_cast<unsigned char>(m.forma), std::bit_cast<std::uint64_t>(m.d1),
                     std::bit_cast<std::uint64_t>(m.d2), std::bit_cast<std::uint64_t>(m.ang)})
            .second;
    if (nova) pixels += lado * lado;
    if (pixels > maximoDePixels) pim::erro("Erro: Formas grandes demais em ", nome);
  }
}

void imprimeContornos(const cv::Mat_<unsigned char>& imagem, const std::vector<MAXLOCAL>& v,
                      const std::string& nome) {
  std::puts("Tracando contornos...");
  cv::Mat_<pim::VEC3B> colorida;
  pim::converte(imagem, colorida);
  pim::imp(tracaFormas(colorida, v, false, pim::VEC3B(0, 0, 255)), nome);
}

}  // namespace

PARAMFILTRA leParametros(pim::ISTR& s) {
  PARAMFILTRA p;
  std::string palavra = pim::minuscula(pim::leStr(s));
  for (; palavra != "eof"; palavra = pim::minuscula(pim::leStr(s))) {
    if (palavra == "default") {
      leDefault(s, p);
    } else if (palavra == "circulo") {
      lePar(s, p.minCorrCir, p.maxInterCir);
    } else if (palavra == "retangulo") {
      lePar(s, p.minCorrRet, p.maxInterRet);
    } else if (palavra == "quadrado") {
      lePar(s, p.minCorrQua, p.maxInterQua);
    } else if (palavra == "elipse") {
      lePar(s, p.minCorrEli, p.maxInterEli);
    } else {
      pim::erro("Erro: Palavra desconhecida ", palavra);
    }
  }
  completa(p);
  return p;
}

void Filtra(int argc, char** argv) {
  exigeArgumentos(argc);
  pim::ISTR parametros;
  parametros.arg2str(argc - 4, argv + 4);
  const PARAMFILTRA p = leParametros(parametros);

  std::printf("Lendo %s...\n", argv[1]);
  cv::Mat_<unsigned char> imagem;
  pim::le(imagem, argv[1]);
  std::printf("Lendo %s...\n", argv[2]);
  std::vector<MAXLOCAL> originais;
  leMaxLocais(originais, argv[2]);
  std::printf("Numero de maximos locais originais=%u\n", static_cast<unsigned>(originais.size()));

  exigeDesenhaveis(originais, p, argv[2]);
  std::puts("Filtrando os maximos locais com interseccao>maxInter...");
  std::vector<MAXLOCAL> mantidos;
  filtInter(originais, mantidos, imagem.size(), p.minCorrCir, p.maxInterCir, p.minCorrRet,
            p.maxInterRet, p.minCorrQua, p.maxInterQua, p.minCorrEli, p.maxInterEli);
  std::printf("Numero de maximos locais apos filtro interseccao=%u\n",
              static_cast<unsigned>(mantidos.size()));
  if (pim::sufixo(argv[3]) == "ho2") {
    impMaxLocais(mantidos, argv[3]);
  } else {
    imprimeContornos(imagem, mantidos, argv[3]);
  }
}
