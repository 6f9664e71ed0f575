#pragma once

#include <cstddef>
#include <vector>

#include "sugere/banco.h"
#include "sugere/olhada.h"

namespace sugere {

// What speaks for dark and for bright grains in a photograph.
struct PARECER {
  double escuros = 0;
  double claros = 0;
  double quantos = 0;  // grains of the polarity chosen, as estimated for the whole photograph

  // Share of the polarity in all that was seen; 0.5 where nothing was.
  double parte(bool inverte) const {
    const double tudo = escuros + claros;
    return tudo > 0 ? (inverte ? claros : escuros) / tudo : 0.5;
  }
};

// The share of a family in one range of proportions.
struct QUINHAO {
  char forma = 'c';
  double proporcao = 1;  // that stands for the range
  double parte = 0;      // of the grains
};

// What to search for.
struct ESCOLHA {
  bool geral = false;    // nothing was found: all that may be
  bool inverte = false;  // bright grains on dark ground
  double parte = 0.5;    // of that polarity in all that was seen
  double minCorr = 0.02;
  double menor = 8;  // equivalent diameters of the grains that were seen, pixels
  double maior = 128;
  std::vector<QUINHAO> familias;  // all that were seen, the most frequent first
  std::vector<LINHA> linhas;      // those that are to be searched for
  PASSOS passos;
  std::vector<PARECER> fotos;
};

// The polarity, families, proportions, sizes and smallest correlation for what was seen of
// `quantasFotos` photographs. Polarity may be settled beforehand: then only its grains are there.
ESCOLHA escolhe(const std::vector<OLHADA>& v, std::size_t quantasFotos);

// Whether grains of both polarities were seen, so that either choice leaves many out.
bool temAmbas(const ESCOLHA& e);

// Whether what was seen in this photograph speaks against the choice.
bool destoa(const ESCOLHA& e, const PARECER& p);

}  // namespace sugere
