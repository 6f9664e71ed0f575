#pragma once

#include <cstddef>
#include <string>

#include "export/idioma.h"
#include "export/parcial.h"
#include "measure/resumo.h"

namespace exporta {

// The grains of many photographs as a COCO data set for object detection (JSON): images,
// annotations, and a category for each shape in the order of measure::letras, from 1. Ids count
// from 1 over the whole set; beside the members of the format an annotation has the index of the
// grain in the list of its photograph ("grain") and its support, or the correlation where it was
// not fitted ("score").
//
// Lengths are in pixels whatever the scale, and the pixel (0, 0) covers 0 to 1, so coordinates are
// half a pixel above those of the lists. Outlines are polygons, whose chords lie within 1/50 px of
// a curve, cut at the borders of the picture, which readers take to hold all; "area" (square
// pixels) and "bbox" (x, y, width, height) are those of the polygon. A grain outside of the picture
// has no annotation. Coordinates have 10 digits.
struct COCO {
  PARCIAL saida;
  IDIOMA idioma = IDIOMA::pt;
  std::string imagens;  // the images so far, which come after the annotations
  std::size_t fotos = 0;
  std::size_t graos = 0;
};

// pim::erro when the file can't be created.
COCO abreCoco(const std::string& nome, IDIOMA idioma = IDIOMA::pt);

// Appends a photograph; `arquivo` is its file, as the set calls it.
void acrescenta(COCO& c, const measure::FOTOGRAFIA& foto, const std::string& arquivo);

// Closes the file and gives it its name; pim::erro when it could not be written whole.
void conclui(COCO c);

}  // namespace exporta
