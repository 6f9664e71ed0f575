#include "sugere/banco.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <opencv2/core.hpp>

namespace sugere {
namespace {

constexpr double menorDesenho = 4.3;  // of a lesser size, pixels
constexpr double menorDisco = 3;
constexpr double maiorDesenho = 240;  // larger kernels cost more than they give
constexpr double reducoes = 8;        // of the last level that is searched

// The sizes that a shape of area pi/4 has.
struct LADOS {
  double d1, d2;
};

LADOS ladosUnitarios(const LINHA& f) {
  const bool reta = f.forma == 'q' || f.forma == 'r';
  const double lado = reta ? std::sqrt(std::numbers::pi / 4) : 1;
  const double raiz = std::sqrt(f.proporcao);
  return {lado * raiz, lado / raiz};
}

const char* palavra(char forma) {
  switch (forma) {
    case 'q':
      return "quadrado";
    case 'r':
      return "retangulo";
    case 'e':
      return "elipse";
    default:
      return "circulo";
  }
}

// Appends one shape, of the diameter `d` at scale 1.
void poeForma(std::string& s, const LINHA& f, double d) {
  const LADOS u = ladosUnitarios(f);
  s += cv::format(f.proporcao > 1 ? "%s %.3g %.3g\n" : "%s %.3g\n", palavra(f.forma), u.d1 * d,
                  u.d2 * d);
}

// Sizes of the file, and the scales at which they span a range of diameters.
struct ESCALAS {
  double base;      // diameter at scale 1
  double menor;     // scale
  double piramide;  // scale reached by the pyramid
};

// The largest size is drawn, or reached by the last reduction. The smallest is not below the range:
// it might be too small to be drawn.
ESCALAS escalas(double menor, double maior, int oitava) {
  const bool uma = maior <= 2 * menor;
  const double base = uma ? maior : std::max(std::min(2 * menor, maiorDesenho), maior / reducoes);
  const double vao = base / (uma ? menor : std::min(menor, base / 2));
  const double degraus = std::max(std::floor(oitava * std::log2(vao) + 1e-6), 1.0);
  return {base, std::exp2(-degraus / oitava), uma ? 1 : maior / base};
}

std::string ajustes(const ESCALAS& e) {
  return cv::format("escala %.3g a 1 piramide %.3g\n", e.menor, e.piramide);
}

}  // namespace

std::string texto(const std::vector<LINHA>& linhas, const PASSOS& passos) {
  std::string s = cv::format("escoitava %d\npassoang %d\n", passos.oitava, passos.angulo);
  std::string ultimos;
  for (const LINHA& f : linhas) {
    const double limite = f.forma == 'c' ? menorDisco : menorDesenho / ladosUnitarios(f).d2;
    const double menor = std::max(f.menor, limite);
    const ESCALAS e = escalas(menor, std::max(f.maior, 1.5 * menor), passos.oitava);
    const std::string estes = ajustes(e);
    if (estes != ultimos) s += estes;
    ultimos = estes;
    poeForma(s, f, e.base);
  }
  return s;
}

}  // namespace sugere
