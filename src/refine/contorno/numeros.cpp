#include "refine/contorno/numeros.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace refine {

namespace {

// Taylor series for |x| <= pi / 4: the terms left out are below 1e-16.
double senoPequeno(double x) {
  const double q = x * x;
  double s = -1.0 / 1307674368000.0;
  s = 1.0 / 6227020800.0 + q * s;
  s = -1.0 / 39916800.0 + q * s;
  s = 1.0 / 362880.0 + q * s;
  s = -1.0 / 5040.0 + q * s;
  s = 1.0 / 120.0 + q * s;
  s = -1.0 / 6.0 + q * s;
  return x + x * q * s;
}

double cossenoPequeno(double x) {
  const double q = x * x;
  double s = 1.0 / 20922789888000.0;
  s = -1.0 / 87178291200.0 + q * s;
  s = 1.0 / 479001600.0 + q * s;
  s = -1.0 / 3628800.0 + q * s;
  s = 1.0 / 40320.0 + q * s;
  s = -1.0 / 720.0 + q * s;
  s = 1.0 / 24.0 + q * s;
  return 1 - q / 2 + q * q * s;
}

// Arc tangent for 0 <= x <= 1, by two halvings of the angle and the series.
double arco(double x) {
  for (int i = 0; i < 2; ++i) x = x / (1 + std::sqrt(1 + x * x));
  const double q = x * x;
  double s = 0;
  for (int k = 23; k >= 1; k -= 2) s = 1.0 / k - q * s;
  return 4 * x * s;
}

}  // namespace

DIRECAO direcao(double graus) {
  const double volta = graus - 360 * std::floor(graus / 360);  // 0 to 360
  const double quartos = std::floor(volta / 90 + 0.5);
  const double x = (volta - 90 * quartos) * (std::numbers::pi / 180);
  const double s = senoPequeno(x);
  const double c = cossenoPequeno(x);
  switch (static_cast<int>(quartos) % 4) {
    case 0:
      return {c, s};
    case 1:
      return {-s, c};
    case 2:
      return {-c, -s};
    default:
      return {s, -c};
  }
}

double exponencial(double x) {
  if (x < -700) return 0;
  const double n = std::floor(x * std::numbers::log2e + 0.5);
  // ln 2 in two parts, of which n times the first is exact.
  constexpr double ln2Alto = 0x1.62e42feep-1;
  constexpr double ln2Baixo = 0x1.a39ef35793c76p-33;
  const double r = x - n * ln2Alto - n * ln2Baixo;  // at most ln 2 / 2 in size
  // The series to r^13, even and odd powers apart: two short chains instead of a long one.
  const double q = r * r;
  double par = 1.0 / 479001600.0;
  par = 1.0 / 3628800.0 + q * par;
  par = 1.0 / 40320.0 + q * par;
  par = 1.0 / 720.0 + q * par;
  par = 1.0 / 24.0 + q * par;
  par = 1.0 / 2.0 + q * par;
  double impar = 1.0 / 6227020800.0;
  impar = 1.0 / 39916800.0 + q * impar;
  impar = 1.0 / 362880.0 + q * impar;
  impar = 1.0 / 5040.0 + q * impar;
  impar = 1.0 / 120.0 + q * impar;
  impar = 1.0 / 6.0 + q * impar;
  const double s = 1 + (r + (q * par + r * q * impar));
  // 2 to the n, written down: n is from -1010 to 1010.
  return s * std::bit_cast<double>(static_cast<std::uint64_t>(static_cast<std::int64_t>(n) + 1023)
                                   << 52U);
}

double logaritmo(double x) {
  int e = 0;
  double m = std::frexp(x, &e);  // 1/2 to 1
  if (m < std::numbers::sqrt2 / 2) {
    m *= 2;
    --e;
  }
  const double z = (m - 1) / (m + 1);  // at most 0.172 in size
  const double q = z * z;
  double s = 0;
  for (int k = 21; k >= 1; k -= 2) s = 1.0 / k + q * s;
  return 2 * z * s + e * std::numbers::ln2;
}

// Abramowitz and Stegun (1964), 26.2.17.
double acumulada(double x) {
  const double t = 1 / (1 + 0.2316419 * std::fabs(x));
  double s = 1.330274429;
  s = -1.821255978 + t * s;
  s = 1.781477937 + t * s;
  s = -0.356563782 + t * s;
  s = 0.319381530 + t * s;
  const double cauda = 0.3989422804014327 * exponencial(-x * x / 2) * t * s;
  return x < 0 ? cauda : 1 - cauda;
}

double angulo(double y, double x) {
  const double ax = std::fabs(x);
  const double ay = std::fabs(y);
  if (ax == 0 && ay == 0) return 0;
  constexpr double graus = 180 / std::numbers::pi;
  double a = ay <= ax ? arco(ay / ax) * graus : 90 - arco(ax / ay) * graus;
  if (x < 0) a = 180 - a;
  return y < 0 ? -a : a;
}

}  // namespace refine
