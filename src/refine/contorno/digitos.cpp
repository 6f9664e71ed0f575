#include "refine/contorno/digitos.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace refine {
namespace {

// The number to the second digit of its standard error.
double arredondado(double x, double erro) {
  if (!(erro > 1e-12 && erro < 1e6) || !std::isfinite(x)) return x;
  std::array<char, 64> texto;
  char* const de = texto.data();
  char* const ate = de + texto.size();
  const char* fim = std::to_chars(de, ate, erro, std::chars_format::scientific, 0).ptr;
  int potencia = 0;
  const char* expoente = de + 2;  // after the digit and the letter
  std::from_chars(*expoente == '+' ? expoente + 1 : expoente, fim, potencia);
  fim = std::to_chars(de, ate, x, std::chars_format::fixed, std::max(0, 1 - potencia)).ptr;
  std::from_chars(de, fim, x);
  return x;
}

}  // namespace

FIGURA peloErro(FIGURA f, const std::array<double, 5>& erro) {
  const bool doisTamanhos = f.forma == 'r' || f.forma == 'e';
  const double d1 = arredondado(f.d1, erro[2]);
  const double d2 = doisTamanhos ? arredondado(f.d2, erro[3]) : erro[2] > 0 ? d1 : f.d2;
  const bool trocaria = (f.d1 >= f.d2) != (d1 >= d2);
  f.l = arredondado(f.l, erro[0]);
  f.c = arredondado(f.c, erro[1]);
  if (!doisTamanhos || !trocaria) {
    f.d1 = d1;
    f.d2 = d2;
  }
  f.ang = arredondado(f.ang, erro[4]);
  return f;
}

}  // namespace refine
