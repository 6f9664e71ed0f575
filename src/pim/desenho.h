#pragma once

#include <opencv2/core.hpp>
#include <vector>

namespace pim {

// Each operation draws one shape of value `cor` into `img`, in place and clipped to the image.
//   l, c        row and column of the centre, pixels, 0-based
//   sizes       half-extents in pixels (radius, half-sides, semi-axes); negative draws nothing
//   espessura   -1: filled; positive: an outline that many pixels wide inside the filled shape's
//               edge; 0 draws nothing
//   ang         degrees; at 0 the first size lies along the columns (x), and positive angles turn
//               clockwise as seen on the screen (rows grow downward)
//
// A pixel belongs to a shape when its centre does, so every shape is exactly point-symmetric about
// (l, c). With (u, v) the offset of the pixel in the shape's own axes:
//   circle      u^2 + v^2 <= raio^2
//   ellipse     (u/tam1)^2 + (v/tam2)^2 <= 1; a zero semi-axis leaves the centre line
//   rectangle   |u| <= tam1 + 1/2 and |v| <= tam2 + 1/2, so that the area does not depend on the
//               angle and at angle 0 it is (2 tam1 + 1) by (2 tam2 + 1) pixels
// The comparisons allow 1e-9 of the size, so that exact boundaries do not flip with rounding.

void circulo(cv::Mat_<unsigned char>& img, int l, int c, int raio, unsigned char cor,
             int espessura);
void circulo(cv::Mat_<float>& img, int l, int c, int raio, float cor, int espessura);

void rotRetang(cv::Mat_<unsigned char>& img, int l, int c, int tam1, int tam2, unsigned char cor,
               int espessura, double ang);
void rotRetang(cv::Mat_<float>& img, int l, int c, int tam1, int tam2, float cor, int espessura,
               double ang);

void elipse(cv::Mat_<unsigned char>& img, int l, int c, int tam1, int tam2, unsigned char cor,
            int espessura, double ang);
void elipse(cv::Mat_<float>& img, int l, int c, int tam1, int tam2, float cor, int espessura,
            double ang);

// A stretch of pixels of one row, its columns counted from the centre; empty when `de` > `ate`.
struct TRECHO {
  int de = 0;
  int ate = -1;
};

// The filled shape as one stretch for each of the 2 `meio` + 1 rows around its centre, cut to
// `meio` columns on each side: what the operation above draws into an image of that side, without
// one.
std::vector<TRECHO> trechosCirculo(int meio, int raio);
std::vector<TRECHO> trechosRotRetang(int meio, int tam1, int tam2, double ang);
std::vector<TRECHO> trechosElipse(int meio, int tam1, int tam2, double ang);

}  // namespace pim
