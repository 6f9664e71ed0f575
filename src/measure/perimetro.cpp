#include "measure/perimetro.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace measure {

double perimetroElipse(double eixo1, double eixo2) {
  const double maior = std::max(eixo1, eixo2) / 2;
  if (maior == 0) return 0;
  const double razao = std::min(eixo1, eixo2) / 2 / maior;
  if (razao == 0) return 4 * maior;
  // Means of a[0] = 1 and g[0] = b / a; soma = sum of 2^(n-1) c[n]^2, c[n+1] = (a[n] - g[n]) / 2.
  double a = 1;
  double g = razao;
  double soma = (1 - razao) * (1 + razao) / 2;
  for (double potencia = 1; a - g > 1e-9 * a; potencia *= 2) {  // the error is the square of this
    const double c = (a - g) / 2;
    soma += potencia * c * c;
    g = std::sqrt(a * g);
    a -= c;
  }
  return 2 * std::numbers::pi * maior * (1 - soma) / ((a + g) / 2);
}

}  // namespace measure
