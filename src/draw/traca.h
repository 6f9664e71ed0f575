#pragma once

#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "detect/maxlocal.h"
#include "pim/converte.h"

// Sub-program `traca imagem.ppm imagem.ho1 saida.ppm [c|C] [i] [p|P]`: draws every record of a .ho1
// or .ho2 file over the image, without filtering. argv[0] is the sub-program's name.
void Traca(int argc, char** argv);

namespace draw {

// What is drawn of each detection beside its outline.
struct TRACOS {
  bool contornoBold = false;
  bool indices = false;
  bool centros = false;
  bool centroBold = false;
};

// A copy of `imagem` with all detections drawn over it (draw/formas.h). pim::erro with `nome`, the
// name of the list, when one is too large to draw.
cv::Mat_<pim::VEC3B> traca(cv::Mat_<pim::VEC3B> imagem, const std::vector<MAXLOCAL>& v,
                           const TRACOS& tracos, const std::string& nome);

}  // namespace draw
