#pragma once

#include <array>
#include <cstddef>
#include <limits>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "detect/maxlocal.h"
#include "pim/pausa.h"
#include "refine/contorno/figura.h"
#include "refine/tracos/pesos.h"

namespace refine {

// How detections become measurements.
struct MODO_DE_APURAR {
  std::string familias = "cqre";  // letters that a grain may get
  double menor = 0;  // sizes that a grain may have: diameter of equal area, pixels, from 4
  double maior = std::numeric_limits<double>::infinity();
  double sobreposicao = 0.3;   // share of its area that a grain may have in common with others
  double sensibilidade = 0.5;  // 0: few and sure, 1: many
  bool semLetras = false;      // families stay as the detections have them
  std::size_t candidatos = 0;  // of the shapes whose support did not do, the best so many are told
  int fios = 1;                // threads; results don't depend on it
  pim::PAUSA pausa;            // called meanwhile
};

// A grain, with fractions of a pixel.
struct APURADO {
  FIGURA figura;         // in the usual way (`normal`)
  float correl = 0;      // of the detection that it comes from
  double apoio = 0;      // probability that it is a grain
  double contraste = 0;  // mean grey around it less mean grey inside, 0 to 1
  // Standard errors of row, column, d1, d2 (pixels) and angle (degrees). What a family doesn't have
  // (the angle of a circle) is 0.
  std::array<double, 5> erro{};
};

struct APURACAO {
  std::vector<APURADO> graos;  // by decreasing support
  // Chosen by their score, refused by their support; by decreasing support. Fitted, not measured:
  // their standard errors are 0.
  std::vector<APURADO> candidatos;
  std::size_t recusados = 0;  // detections that are no shapes in this picture, and were left out
};

// The least support of a grain at a sensitivity: 0.33 in the middle, towards 0.9 and 0.05 at the
// ends.
double menorApoio(double sensibilidade);

// Fits every detection to the edges of the picture, judges the fits, chooses among them and
// measures what was chosen. Grains are darker than their ground. Linear in the detections; about 24
// bytes a pixel. pim::erro for families that aren't of "cqre".
APURACAO apura(const cv::Mat_<unsigned char>& imagem, const std::vector<MAXLOCAL>& lista,
               const MODO_DE_APURAR& modo, const PESOS& pesos = pesosAprendidos());

}  // namespace refine
