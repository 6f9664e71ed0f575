#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "batch/avisos/sinais.h"
#include "export/idioma.h"

namespace batch {

// What makes the numbers of a run doubtful.
enum class DUVIDA {
  noMenor,  // sizes pile up at the smallest size searched; `parte` of the grains, `tamanho` in px
  noMaior,  // at the largest
  polaridade,  // `quantos` photographs show grains of the other polarity more strongly
  poucos,      // only `quantos` grains
  desfoque     // edges are `parte` px wide, the smallest grains (D5) `tamanho` px
};

struct AVISO {
  DUVIDA que = DUVIDA::poucos;
  double parte = 0;
  double tamanho = 0;
  std::size_t quantos = 0;
};

// One photograph, or several.
struct OBSERVADO {
  std::vector<double> diametros;  // of equal area, of the grains that count, pixels
  std::vector<SINAIS> sinais;     // of each photograph
};

// An end is piled up when a tenth of the grains, and more than 4, lie within a factor of 1.15 of it
// or beyond it, and these are half as many again as there are within the next such factor: a search
// that merely begins where the grains do has no pile. Polarity is doubted when in half of the
// photographs the other one is 1.3 times as strong. At least 100 grains for D10 and D90: below,
// one lies beyond them among ten. Blur from two thirds of D5 on.
std::vector<AVISO> avisos(const OBSERVADO& o, const ALCANCE& a);

std::string frase(const AVISO& a, exporta::IDIOMA idioma);

}  // namespace batch
