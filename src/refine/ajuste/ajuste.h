#pragma once

#include <array>
#include <optional>
#include <vector>

#include "refine/ajuste/campo.h"
#include "refine/ajuste/perfil.h"
#include "refine/contorno/figura.h"

namespace refine {

// Workspace of a fit, kept from one to the next so that nothing is allocated.
struct BANCADA {
  std::vector<AMOSTRA> amostras;
  std::vector<BORDA> bordas;
  std::vector<double> deslocamentos;
  PERFIS perfis;
};

// One way of fitting: how many samples and steps, and how far the profiles reach.
struct MODO {
  int amostras = 16;
  int passos = 3;  // at most
  double passoDoPerfil = 1;
  double alcance = 1;    // of the profiles, times the usual reach of a first step
  double parada = 0.05;  // ends when nothing moves farther, pixels
};

// The shape in the pixels of a reduction, and back.
FIGURA noAndar(const FIGURA& f, int nivel);
FIGURA naFoto(const FIGURA& f, int nivel);

// Moves the shape (in pixels of the reduction) to the edges around it, step by step; its family
// stays. False when it got lost: no size left, or no longer in the picture. `b` holds samples and
// edges of the last step but one.
bool ajusta(const ANDAR& andar, FIGURA& f, const MODO& modo, BANCADA& b);

using VETOR = std::array<double, parametros>;
using SISTEMA = std::array<VETOR, parametros>;

// The weighted least squares of one step. `deslocamentos` are the places of the edges outward from
// the contour; those farther than `tolerancia` count less and less.
struct EQUACOES {
  SISTEMA matriz{};  // lower half
  VETOR lado{};
  int n = 0;  // unknowns: row, column, size or sizes, angle
};
EQUACOES equacoes(const ANDAR& andar, const FIGURA& f, const std::vector<double>& deslocamentos,
                  double tolerancia, const BANCADA& b);

// The solution of the damped equations; nothing when there is none.
std::optional<VETOR> resolve(const EQUACOES& e, double amortecimento);

// How the sums of `equacoes` scatter, from what each edge adds to them; edges up to `vizinhas`
// samples apart on a side are taken as alike, the less the farther (Newey and West, 1987).
SISTEMA dispersao(const ANDAR& andar, const FIGURA& f, const std::vector<double>& deslocamentos,
                  double tolerancia, int vizinhas, const BANCADA& b);

// Covariance of the unknowns from the scatter of the edges (the sandwich of Huber, 1967).
std::optional<SISTEMA> covariancia(const EQUACOES& e, const SISTEMA& dispersao);

// Moves the shape by the step, no farther than is sound; returns the farthest that anything moved.
double move(FIGURA& f, const VETOR& v);

// Whether nothing sound is left of it.
bool perdida(const ANDAR& andar, const FIGURA& f);

// How far profiles reach at first: 0.4 of the lesser half size, from 2 to 8 pixels.
double alcanceUsual(const FIGURA& f);

}  // namespace refine
