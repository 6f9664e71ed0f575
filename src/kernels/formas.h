#pragma once

#include <opencv2/core.hpp>

// Shapes as eight-bit images. A shape has a letter ('c' circle, 'q' square, 'r' rectangle, 'e'
// ellipse), full sizes d1 and d2 in pixels (diameter, side, axis; never radii) and an angle in
// degrees (at 0, d1 lies along the columns; positive turns clockwise on the screen).
//
// Every image is square with an odd side n, the shape's centre at pixel (n/2, n/2), 0 on the shape
// and 255 elsewhere. The output keeps its buffer when it already has the right size, so shallow
// copies of it are drawn over too; otherwise it gets a new one. A side below 1, from a negative
// size, gives an empty image. A size that is not finite, or a side above `maiorLado`, ends in
// pim::erro naming the shape.

inline constexpr int maiorLado = 16383;  // pixels; a byte image of this side takes 256 MiB

// Filled shapes. Half-extents are truncated to whole pixels, sides are not.
// `mascaraCirculo` takes diameters that round (ties to even) to 1..4 from a fixed table, and
// leaves `out` untouched when d rounds to 0 or less.
void mascaraCirculo(cv::Mat_<unsigned char>& out, double d);
void mascaraQuadrado(cv::Mat_<unsigned char>& out, double d, double ang);
void mascaraRetangulo(cv::Mat_<unsigned char>& out, double d1, double d2, double ang);
void mascaraElipse(cv::Mat_<unsigned char>& out, double d1, double d2, double ang);

// The inner boundary of the filled shape of the same name, in an image of the same size. pim::erro
// "Erro: IMG_::constructor _mat nulo" when the filled shape is an empty image.
void contornoCirculo(cv::Mat_<unsigned char>& out, double d);
void contornoQuadrado(cv::Mat_<unsigned char>& out, double d, double ang);
void contornoRetangulo(cv::Mat_<unsigned char>& out, double d1, double d2, double ang);
void contornoElipse(cv::Mat_<unsigned char>& out, double d1, double d2, double ang);

// Sets to 0 the pixels of the shape (value 0) in `imagem` that have a neighbour above, below, left
// or right outside it; the outside of the image counts as background. pim::erro as above when
// `imagem` is empty. `out` must not share pixels with `imagem`.
void contornoInterno(cv::Mat_<unsigned char> imagem, cv::Mat_<unsigned char>& out);

// The odd side 2 ceil((extensao - 1) / 2) + 1 that holds `extensao` pixels, plus `margem` (even).
// pim::erro with `forma`, d1 and d2 when one of the sizes is not finite or the side exceeds
// `maior`.
int ladoImpar(double extensao, int margem, char forma, double d1, double d2, int maior);

// Makes `img` n by n, all `fundo`; its buffer is kept when it has that size. n < 1: empty.
template <class T>
void prepara(cv::Mat_<T>& img, int n, T fundo) {
  if (n < 1) {
    img.release();
    return;
  }
  img.create(n, n);
  img.setTo(fundo);
}
