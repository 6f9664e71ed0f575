#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "pim/pausa.h"
#include "refine/ajuste/ajuste.h"
#include "refine/candidatos.h"
#include "refine/contorno/vizinhos.h"
#include "refine/tracos/pesos.h"

namespace refine {

struct MODO_DE_JULGAR {
  double sobreposicao = 0.3;  // share of its area that a grain may have in common with others
  int fios = 1;               // threads; results don't depend on it
  pim::PAUSA pausa;           // called between the looks
};

// Candidates as they are judged, one entry each: the shape, what was seen of it and its score. And
// the numbers of those that are chosen, in the order of the choice.
struct JUIZO {
  std::vector<FIGURA> figuras;
  std::vector<EXAME> exames;
  std::vector<double> notas;
  std::vector<std::size_t> escolhidos;
};

// Scores the candidates, chooses among them, looks again at what chosen neighbours hide in part,
// and chooses anew.
JUIZO julga(const CAMPO& campo, const std::vector<CANDIDATO>& v, const MODO_DE_JULGAR& modo,
            const NOTA<quantosTracos>& nota);

// The support of each chosen shape, from its own score and in the company of the others.
std::vector<double> apoios(const JUIZO& j, const NOTA<quantosDaCompanhia>& nota);

// Workspace of one thread, kept from one shape to the next.
struct MESA_DE_EXAME {
  BANCADA bancada;
  std::vector<std::uint32_t> perto;
  std::vector<PONTO_NA_FOTO> pontos;
  std::vector<FIGURA> encobrem;
};

// The chosen shapes around `f` that may hide part of it, in `m.encobrem`: they share some of its
// area, and no more than both could have in common.
void quemEncobre(const FIGURA& f, const VIZINHOS& aceitos, double sobreposicao, MESA_DE_EXAME& m);

}  // namespace refine
