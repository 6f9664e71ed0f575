#pragma once

#include <map>
#include <vector>

#include "examples/grao.h"

// Area shared by two grains over the area that either covers, counted in pixel centres; 0 when
// neither covers any.
double iou(const GRAO& a, const GRAO& b);

// For every detection the index of the true grain that it stands for, or -1. Pairs whose IoU
// reaches `minimo` are taken best first, each grain and each detection once.
std::vector<int> casa(const std::vector<GRAO>& verdade, const std::vector<GRAO>& deteccoes,
                      double minimo = 0.5);

struct CONTAGEM {
  int verdade = 0;
  int deteccoes = 0;
  int achados = 0;  // true grains of this letter found, under whatever letter
  int letra = 0;    // and under their own
};

struct AVALIACAO {
  CONTAGEM total;
  std::map<char, CONTAGEM> familias;
  double erroDiametro = 0;  // median relative error of the equivalent diameter, of found grains

  double precisao() const;
  double revocacao() const;
  double f1() const;
  double letrasCertas() const;  // share of the found grains
};

AVALIACAO avalia(const std::vector<GRAO>& verdade, const std::vector<GRAO>& deteccoes,
                 const std::vector<int>& par);
