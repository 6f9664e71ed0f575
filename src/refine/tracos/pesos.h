#pragma once

#include <array>
#include <cstddef>

#include "refine/tracos/companhia.h"
#include "refine/tracos/esboco.h"
#include "refine/tracos/tracos.h"

namespace refine {

// A logistic score: the sum of coefficients times features, each less its mean and by its
// deviation over the pictures learned on. Probabilities are 1 / (1 + exp(-score)).
struct TERMO_DA_NOTA {
  float media = 0;
  float desvio = 1;
  float coeficiente = 0;
};

template <std::size_t N>
struct NOTA {
  std::array<TERMO_DA_NOTA, N> termos{};
  float constante = 0;

  double de(const std::array<float, N>& tracos) const {
    double z = constante;
    for (std::size_t k = 0; k < N; ++k) {
      z += double{termos[k].coeficiente} * (tracos[k] - termos[k].media) / termos[k].desvio;
    }
    return z;
  }
};

// What judging has been taught: of a coarse fit, of a
// shape alone, and in its picture's company.
struct PESOS {
  NOTA<quantosEsbocados> esboco;
  NOTA<quantosTracos> sozinha;
  NOTA<quantosDaCompanhia> acompanhada;
};

// Those made by script/treina (docs/treino.md).
const PESOS& pesosAprendidos();

double probabilidade(double nota);

}  // namespace refine
