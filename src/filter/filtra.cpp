#include "filter/filtra.h"

#include <cstdio>
#include <string>
#include <vector>

#include "detect/maxlocal.h"
#include "draw/formas.h"
#include "filter/filtinter.h"
#include "filter/filtraveis.h"
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

LIMIAR lePar(pim::ISTR& s) {
  LIMIAR par;
  pim::leNum(s, par.minCorr);
  pim::leNum(s, par.maxInter);
  return par;
}

void completa(LIMIAR& par, const LIMIAR& padrao) {
  if (par.minCorr < 0) par.minCorr = padrao.minCorr;
  if (par.maxInter < 0) par.maxInter = padrao.maxInter;
}

void imprimeContornos(const cv::Mat_<unsigned char>& imagem, const std::vector<MAXLOCAL>& v,
                      const std::string& nome) {
  std::puts("Tracando contornos...");
  cv::Mat_<pim::VEC3B> colorida;
  pim::converte(imagem, colorida);
  pim::imp(tracaFormas(colorida, v, false, pim::VEC3B(0, 0, 255)), nome);
}

}  // namespace

LIMIARES leParametros(pim::ISTR& s) {
  constexpr LIMIAR nenhum = {-1, -1};
  LIMIAR padrao = {0.1, 0.3};
  LIMIARES p = {nenhum, nenhum, nenhum, nenhum};
  std::string palavra = pim::minuscula(pim::leStr(s));
  for (; palavra != "eof"; palavra = pim::minuscula(pim::leStr(s))) {
    if (palavra == "default") {
      padrao = lePar(s);
      p = {padrao, padrao, padrao, padrao};
    } else if (palavra == "circulo") {
      p.circulo = lePar(s);
    } else if (palavra == "retangulo") {
      p.retangulo = lePar(s);
    } else if (palavra == "quadrado") {
      p.quadrado = lePar(s);
    } else if (palavra == "elipse") {
      p.elipse = lePar(s);
    } else {
      pim::erro("Erro: Palavra desconhecida ", palavra);
    }
  }
  for (LIMIAR* par : {&p.circulo, &p.retangulo, &p.quadrado, &p.elipse}) completa(*par, padrao);
  return p;
}

void Filtra(int argc, char** argv) {
  exigeArgumentos(argc);
  pim::ISTR parametros;
  parametros.arg2str(argc - 4, argv + 4);
  const LIMIARES limiares = leParametros(parametros);

  std::printf("Lendo %s...\n", argv[1]);
  cv::Mat_<unsigned char> imagem;
  pim::le(imagem, argv[1]);
  std::printf("Lendo %s...\n", argv[2]);
  std::vector<MAXLOCAL> originais;
  leMaxLocais(originais, argv[2]);
  std::printf("Numero de maximos locais originais=%u\n", static_cast<unsigned>(originais.size()));

  filter::exigeFiltraveis(originais, limiares, argv[2]);
  std::puts("Filtrando os maximos locais com interseccao>maxInter...");
  std::vector<MAXLOCAL> mantidos;
  filtInter(originais, mantidos, imagem.size(), limiares);
  std::printf("Numero de maximos locais apos filtro interseccao=%u\n",
              static_cast<unsigned>(mantidos.size()));
  if (pim::sufixo(argv[3]) == "ho2") {
    impMaxLocais(mantidos, argv[3]);
  } else {
    imprimeContornos(imagem, mantidos, argv[3]);
  }
}
