#pragma once

#include "examples/cenas/arranjo.h"

namespace cenas {

// What one grain looks like, drawn from the ranges of its kind.
struct TINTA {
  double tom;        // light of its middle, share of white
  double contraste;  // share of the ground's light that it lacks, or has more
  double foco;       // deviation of its own blur
  double furo;       // inner over outer size; 0: none
  cv::Point2d luz;   // unit vector toward the light
  std::uint64_t semente;
};

TINTA sorteiaTinta(const TIPO& tipo, const OBJETO& objeto, cv::Point2d luz, SORTEIO& s);

// Lays the grain over what is there: by its share of every pixel, or letting it shine through.
void pinta(cv::Mat_<float>& imagem, const TIPO& tipo, const OBJETO& objeto, const TINTA& tinta);

// Takes light from the ground away from `luz`, as far as the grains' shadows reach, softer the
// longer they are.
void sombreia(cv::Mat_<float>& imagem, const TIPO& tipo, const std::vector<OBJETO>& objetos,
              cv::Point2d luz, SORTEIO& s);

// Lays `tom` over the picture by the shares of `r`.
void cobre(cv::Mat_<float>& imagem, const RETALHO& r, float tom);

}  // namespace cenas
