#pragma once

#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "pim/desenho.h"

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
// or right outside it; the outside of the image counts as background. pim::erro
// "Erro: IMG_::constructor _mat nulo" when `imagem` is empty. `out` must not share pixels with
// `imagem`.
void contornoInterno(cv::Mat_<unsigned char> imagem, cv::Mat_<unsigned char>& out);

// A filled shape row by row, without its image, which grows with the square of the size.
struct PERFIL {
  int lado = 0;                     // of the image; 0 when it would be empty or left untouched
  std::vector<pim::TRECHO> linhas;  // of value 0, one for each row; columns from n/2

  // The stretch of row y; an empty one outside the image.
  pim::TRECHO linha(int y) const {
    return y < 0 || y >= lado ? pim::TRECHO{} : linhas[static_cast<std::size_t>(y)];
  }
};

// What the mask function of the letter would draw; nothing for an unknown letter. pim::erro where
// that function ends in it.
PERFIL perfil(char forma, double d1, double d2, double ang);

// The odd side 2 ceil((extensao - 1) / 2) + 1 that holds `extensao` pixels, plus `margem` (even).
double ladoImpar(double extensao, int margem);

// The side of the mask of a shape (of a circle below 4.5, it may be more than that of the table);
// infinite when a size that counts is not finite, and 0 for an unknown letter. May be below 1, or
// larger than can be drawn.
double ladoDaMascara(char forma, double d1, double d2);

// `lado` as an integer; pim::erro with `forma`, d1, d2 and `onde` when it exceeds `maior`.
int exigeLado(double lado, char forma, double d1, double d2, int maior,
              const std::string& onde = "");

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
