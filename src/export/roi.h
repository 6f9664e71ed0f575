#pragma once

#include <string>
#include <vector>

#include "measure/grao.h"
#include "measure/resumo.h"

namespace exporta {

// The outlines as regions of interest of ImageJ.
//
// There the pixel (0, 0) covers 0 to 1, so all coordinates are half a pixel above those of the
// lists. A shape that lies along the rows and columns and whose bounds are whole pixels there is an
// oval or a rectangle. Any other is a polygon, whose chords lie within 1/50 px of a curve: ImageJ
// rounds the bounds of ovals and rectangles when it measures, which moves them by up to half a
// pixel, but not those of polygons. All have the option of sub-pixel coordinates: 32-bit floats.
// The whole-pixel coordinates beside them, for older readers, are cut to what ImageJ reads from 16
// bits, -5000 to 60535.

// The bytes of one .roi file. `nome` is ASCII and is stored in it.
std::vector<unsigned char> roiDoGrao(const measure::GRAO& g, const std::string& nome);

// "0007" for index 7: the name of the region, as in the samples of extraiam.
std::string nomeDoRoi(const measure::GRAO& g);

// Writes a zip file with one NAME.roi for each grain, in order, as the ROI Manager opens it.
// Entries are stored and dated 1980-01-01, so the same grains give the same bytes. Without grains
// there is no file, and one that stood there goes: on an archive without entries ImageJ shows a
// message and, run as a batch, waits for ever. pim::erro when it can't be written whole, or when
// two grains have the same index.
void impRois(const measure::FOTOGRAFIA& foto, const std::string& nome);

}  // namespace exporta
