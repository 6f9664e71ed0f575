#pragma once

#include <cstddef>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

// One detection: a local maximum of the correlation of the image with a shape kernel. Places and
// sizes are in pixels of the full-resolution image. Nothing about a record is enforced: read from
// a file it may hold any letter, a centre outside the image, and sizes that are zero or negative.
struct MAXLOCAL {
  float correl = 0;  // correlation there, the larger the better; 1 for a black shape on white
  char forma = 0;    // 'c' circle, 'q' square, 'r' rectangle, 'e' ellipse
  int li = 0;        // row of the centre, 0 at the top
  int ci = 0;        // column of the centre, 0 at the left
  double d1 = 0;     // first full size (diameter, side or axis), along the angle
  double d2 = 0;     // second full size
  double ang = 0;    // degrees, clockwise on the screen, 0 along the columns
};

// Writes the list as a .ho1 or .ho2 file (docs/ho1-ho2.md). Angles lose their decimals there.
// pim::erro when the file can't be created or written whole.
void impMaxLocais(const std::vector<MAXLOCAL>& v, const std::string& nome);

// Appends the records of a .ho1 or .ho2 file to `v`: as many as its first number says, whatever
// follows them. pim::erro when the file can't be opened, or at a missing or bad number. A count
// below 0 or above 107374182 throws pim::CONTAGEM_IMPOSSIVEL.
void leMaxLocais(std::vector<MAXLOCAL>& v, const std::string& nome);

// Prints one record on standard output, for diagnosis.
// For programs built with these sources; no command calls it.
void mostraMaxLocal(MAXLOCAL m);

// The filled mask of the detected shape (kernels/formas.h), by its letter. Any other letter leaves
// `out` as it was.
void mascaraMaxLocal(MAXLOCAL m, cv::Mat_<unsigned char>& out);

// The side of that mask in pixels, 0 when there is none. pim::erro with the shape, `nome` and the
// index `k` of the record in that file when it is too large to draw.
int exigeDesenhavel(const MAXLOCAL& m, const std::string& nome, std::size_t k);

// " (NAME, registro K)", for messages about record `k`, counted from 0, of a list; nothing when
// there is no name.
std::string lugarDoRegistro(const std::string& nome, std::size_t k);
