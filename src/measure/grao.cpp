#include "measure/grao.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "measure/contorno.h"
#include "measure/perimetro.h"
#include "pim/converte.h"
#include "pim/erro.h"
#include "refine/contorno/digitos.h"

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

bool passaDaBorda(const refine::FIGURA& f, int rows, int cols) {
  const PONTO meia = measure::meiaCaixa(f);
  return f.c - meia.x < -0.5 || f.c + meia.x > cols - 0.5 || f.l - meia.y < -0.5 ||
         f.l + meia.y > rows - 0.5;
}

bool temExtensao(const refine::FIGURA& f, float correl) {
  const bool forma = f.forma == 'c' || f.forma == 'q' || temDoisTamanhos(f.forma);
  const bool finita = std::isfinite(correl) && std::isfinite(f.l) && std::isfinite(f.c) &&
                      std::isfinite(f.ang) && std::isfinite(f.d2);
  return forma && finita && tamanhoValido(f.d1) &&
         (!temDoisTamanhos(f.forma) || tamanhoValido(f.d2));
}

// The record as it stands, also where its letter doesn't use a number.
refine::FIGURA semMudar(const MAXLOCAL& m) {
  return {m.forma, static_cast<double>(m.li), static_cast<double>(m.ci), m.d1, m.d2, m.ang};
}

GRAO medeFigura(const refine::FIGURA& f, float correl, std::size_t indice, cv::Size foto) {
  if (!temExtensao(f, correl)) {
    pim::erro("Erro: Forma sem medida ",
              cv::format("%zu %c %g %g", indice, f.forma == 0 ? '?' : f.forma, f.d1, f.d2));
  }
  const double d2 = temDoisTamanhos(f.forma) ? f.d2 : f.d1;
  GRAO g;
  g.indice = indice;
  g.figura = f;
  g.correl = correl;
  g.area = f.d1 * d2 * (redonda(f.forma) ? std::numbers::pi / 4 : 1);
  // Without the detour over pi where it cancels.
  g.equivalente =
      redonda(f.forma) ? std::sqrt(f.d1 * d2) : std::sqrt(g.area * (4 / std::numbers::pi));
  g.perimetro = perimetro(f.forma, f.d1, d2);
  g.menor = std::min(f.d1, d2);
  g.maior = std::max(f.d1, d2);
  g.alongamento = g.maior / g.menor;
  g.tocaBorda = passaDaBorda(f, foto.height, foto.width);
  return g;
}

}  // namespace

bool mensuravel(const MAXLOCAL& m) {
  return temExtensao(semMudar(m), m.correl);
}

GRAO mede(const MAXLOCAL& m, std::size_t indice, int rows, int cols) {
  return medeFigura(semMudar(m), m.correl, indice, cv::Size(cols, rows));
}

std::vector<GRAO> medeTodos(const std::vector<MAXLOCAL>& v, int rows, int cols) {
  std::vector<GRAO> graos;
  graos.reserve(v.size());
  for (const MAXLOCAL& m : v) graos.push_back(mede(m, graos.size(), rows, cols));
  return graos;
}

std::vector<GRAO> medeApurados(const std::vector<refine::APURADO>& v, int rows, int cols) {
  std::vector<GRAO> graos;
  graos.reserve(v.size());
  for (const refine::APURADO& a : v) {
    graos.push_back(medeFigura(refine::peloErro(a.figura, a.erro), a.correl, graos.size(),
                               cv::Size(cols, rows)));
    graos.back().medido = MEDIDO{a.apoio, a.contraste, a.erro};
  }
  return graos;
}

MAXLOCAL registro(const GRAO& g) {
  const refine::FIGURA& f = g.figura;
  return {g.correl, f.forma, pim::arredonda(f.l), pim::arredonda(f.c), f.d1, f.d2, f.ang};
}

}  // namespace measure
