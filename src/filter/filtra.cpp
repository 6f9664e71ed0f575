#include "filter/filtra.h"

#include <cstdio>
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
