#pragma once

#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "detect/maxlocal.h"
#include "filter/limiares.h"

// A slow, literal version of the intersection filter, to compare the program with.

// Which cells a withdrawn detection leaves. The program does `doTamanhoDaMascara`; the others are
// what a reader might take for it, and show that a test tells them apart.
enum class RETIRADA { doTamanhoDaMascara, semUltimaColuna, daImagem, nenhuma };

struct FILTRADO {
  std::vector<std::size_t> mantidos;  // positions in the input, in order
  int retirados = 0;                  // detections admitted and then withdrawn
  int presos = 0;                     // cells in which a withdrawn detection left its index
  std::string afirmacao;              // the assertion that ended the run; empty when none did
};

FILTRADO filtraIngenuo(const std::vector<MAXLOCAL>& entrada, cv::Size tamanho, const LIMIARES& t,
                       RETIRADA retirada = RETIRADA::doTamanhoDaMascara);
