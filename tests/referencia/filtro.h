#pragma once

#include "filter/filtinter.h"

// The intersection filter in its plain form: masks redrawn at every turn, one reserved vector for
// each pixel. Same contracts as filter/filtinter.h.
namespace referencia {

// Which cells a withdrawn detection leaves. The program does `doTamanhoDaMascara`; the others are
// what a reader might take for it, and show that a test tells them apart.
enum class RETIRADA { doTamanhoDaMascara, semUltimaColuna, daImagem, nenhuma };

struct RETIRADAS {
  int retirados = 0;  // detections admitted and then withdrawn
  int presos = 0;     // cells in which a withdrawn detection left its index
};

RETIRADAS filtra(const std::vector<MAXLOCAL>& entrada, std::vector<MAXLOCAL>& saida,
                 cv::Size tamanho, const LIMIARES& limiares,
                 RETIRADA retirada = RETIRADA::doTamanhoDaMascara);

void filtInter(const std::vector<MAXLOCAL>& entrada, std::vector<MAXLOCAL>& saida, cv::Size tamanho,
               const LIMIARES& limiares);

}  // namespace referencia
