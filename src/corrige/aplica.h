#pragma once

#include <cstddef>
#include <opencv2/core.hpp>
#include <vector>

#include "corrige/correcoes.h"
#include "refine/apura.h"

namespace corrige {

// What came of the corrections of a photograph.
struct FEITAS {
  std::size_t rejeitados = 0;
  std::size_t recuperados = 0;
  std::size_t desenhados = 0;
  std::size_t semPar = 0;  // nothing there to reject, or no place in this photograph

  FEITAS& operator+=(const FEITAS& f) {
    rejeitados += f.rejeitados;
    recuperados += f.recuperados;
    desenhados += f.desenhados;
    semPar += f.semPar;
    return *this;
  }
};

// Corrects the grains of the photograph `vista` (grains darker than their ground), one correction
// after the other. The same grain is one that shares at least half of the union: rejecting takes
// the most alike away, and an added one takes the place of those that it is alike. An added one
// keeps its family and is fitted to the edges; where no edge holds it, it stays as it was drawn and
// has standard errors of 0, which is: none are known. Its support and correlation are 1: a person
// has said so. Added ones stand at the end.
FEITAS aplica(const cv::Mat_<unsigned char>& vista, const std::vector<CORRECAO>& lista,
              std::vector<refine::APURADO>& graos);

}  // namespace corrige
