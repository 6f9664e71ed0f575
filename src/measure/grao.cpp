#include "measure/grao.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "measure/contorno.h"
#include "measure/perimetro.h"
#include "pim/erro.h"

namespace measure {
namespace {

bool temDoisTamanhos(char forma) {
  return forma == 'r' || forma == 'e';
}

bool redonda(char forma) {
  return forma == 'c' || forma == 'e';
}

bool tamanhoValido(double d) {
  return d >= menorTamanho && d <= maiorTamanho;
}

double perimetro(char forma, double d1, double d2) {
  if (forma == 'c') return std::numbers::pi * d1;
  if (forma == 'e') return perimetroElipse(d1, d2);
  return 2 * (d1 + d2);
}

bool passaDaBorda(const MAXLOCAL& m, int rows, int cols) {
  const PONTO meia = meiaCaixa(m);
  return m.ci - meia.x < -0.5 || m.ci + meia.x > cols - 0.5 || m.li - meia.y < -0.5 ||
         m.li + meia.y > rows - 0.5;
}

}  // namespace

bool mensuravel(const MAXLOCAL& m) {
  const bool forma = m.forma == 'c' || m.forma == 'q' || temDoisTamanhos(m.forma);
  const bool finita = std::isfinite(m.correl) && std::isfinite(m.ang) && std::isfinite(m.d2);
  return forma && finita && tamanhoValido(m.d1) &&
         (!temDoisTamanhos(m.forma) || tamanhoValido(m.d2));
}

GRAO mede(const MAXLOCAL& m, std::size_t indice, int rows, int cols) {
  if (!mensuravel(m)) {
    pim::erro("Erro: Forma sem medida ",
              cv::format("%zu %c %g %g", indice, m.forma == 0 ? '?' : m.forma, m.d1, m.d2));
  }
  const double d2 = temDoisTamanhos(m.forma) ? m.d2 : m.d1;
  GRAO g;
  g.indice = indice;
  g.maximo = m;
  g.area = m.d1 * d2 * (redonda(m.forma) ? std::numbers::pi / 4 : 1);
  // Without the detour over pi where it cancels.
  g.equivalente =
      redonda(m.forma) ? std::sqrt(m.d1 * d2) : std::sqrt(g.area * (4 / std::numbers::pi));
  g.perimetro = perimetro(m.forma, m.d1, d2);
  g.menor = std::min(m.d1, d2);
  g.maior = std::max(m.d1, d2);
  g.alongamento = g.maior / g.menor;
  g.tocaBorda = passaDaBorda(m, rows, cols);
  return g;
}

std::vector<GRAO> medeTodos(const std::vector<MAXLOCAL>& v, int rows, int cols) {
  std::vector<GRAO> graos;
  graos.reserve(v.size());
  for (const MAXLOCAL& m : v) graos.push_back(mede(m, graos.size(), rows, cols));
  return graos;
}

}  // namespace measure
