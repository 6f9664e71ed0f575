#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "examples/cenario.h"
#include "examples/sorteio.h"

namespace {

constexpr double margem = 2;      // pixels of ground between a grain and the image border
constexpr double folga = 3;       // and between grains that do not touch
constexpr double encosto = -0.5;  // touching grains overlap by up to twice this
constexpr double parteQueToca = 0.25;
constexpr int tentativas = 300;

double arredonda(double x, double unidade) {
  return std::round(x * unidade) / unidade;
}

// A grain of random shape, size and angle, without a place.
GRAO sorteiaGrao(SORTEIO& s) {
  constexpr std::array<char, 4> familias = {'c', 'q', 'r', 'e'};
  while (true) {
    GRAO g;
    g.forma = familias[static_cast<std::size_t>(s.uniforme(0, 4))];
    const double tamanho = 21 * std::exp(0.3 * s.normal());
    const bool alongado = g.forma == 'r' || g.forma == 'e';
    const double razao = alongado ? s.uniforme(1.4, 2.6) : 1;
    g.d1 = arredonda(tamanho * std::sqrt(razao), 100);
    g.d2 = alongado ? arredonda(tamanho / std::sqrt(razao), 100) : g.d1;
    const double volta = g.forma == 'c' ? 0 : g.forma == 'q' ? 89.9 : 179.9;
    g.ang = arredonda(s.uniforme(0, volta), 10);
    if (tamanho >= 12 && tamanho <= 45 && g.d1 <= 48 && g.d2 >= 9) return g;
  }
}

// Which pixels the grains placed so far cover.
struct TERRENO {
  cv::Mat_<unsigned char> ocupado;

  // Whether the grain lies inside the image and clear of all others, at least `distancia` apart.
  bool cabe(const GRAO& g, double distancia) const {
    const FIGURA f(crescido(g, distancia));
    const cv::Rect limites = FIGURA(crescido(g, margem)).caixa();
    if ((limites & cv::Rect({0, 0}, ocupado.size())) != limites) return false;
    const cv::Rect r = f.caixa();
    if ((r & cv::Rect({0, 0}, ocupado.size())) != r) return false;
    for (int l = r.y; l < r.y + r.height; ++l) {
      for (int c = r.x; c < r.x + r.width; ++c) {
        if (ocupado(l, c) != 0 && f.dentro(l, c)) return false;
      }
    }
    return true;
  }

  void ocupa(const GRAO& g) {
    const FIGURA f(g);
    const cv::Rect r = f.caixa();
    for (int l = r.y; l < r.y + r.height; ++l) {
      for (int c = r.x; c < r.x + r.width; ++c) {
        if (f.dentro(l, c)) ocupado(l, c) = 1;
      }
    }
  }
};

bool porSolto(GRAO& g, const TERRENO& terreno, SORTEIO& s) {
  g.linha = arredonda(s.uniforme(0, terreno.ocupado.rows), 100);
  g.coluna = arredonda(s.uniforme(0, terreno.ocupado.cols), 100);
  return terreno.cabe(g, folga);
}

// Moves the grain away from the middle of `vizinho` in a random direction until it has room.
bool porEncostado(GRAO& g, const GRAO& vizinho, const TERRENO& terreno, SORTEIO& s) {
  const double direcao = s.uniforme(0, 2 * std::numbers::pi);
  for (double d = 6; d < 60; d += 0.25) {
    g.linha = arredonda(vizinho.linha + d * std::sin(direcao), 100);
    g.coluna = arredonda(vizinho.coluna + d * std::cos(direcao), 100);
    if (terreno.cabe(g, encosto)) return true;
  }
  return false;
}

}  // namespace

std::vector<GRAO> povoa(const CENARIO& cenario) {
  SORTEIO s{cenario.semente};
  TERRENO terreno{cv::Mat_<unsigned char>(cenario.linhas, cenario.colunas, uchar{0})};
  std::vector<GRAO> graos;
  for (int i = 0; i < cenario.graos; ++i) {
    GRAO g = sorteiaGrao(s);
    const bool encosta = !graos.empty() && s.uniforme(0, 1) < parteQueToca;
    bool posto = false;
    for (int t = 0; t < tentativas && !posto; ++t) {
      if (encosta) {
        const double qual = s.uniforme(0, static_cast<double>(graos.size()));
        posto = porEncostado(g, graos[static_cast<std::size_t>(qual)], terreno, s);
      } else {
        posto = porSolto(g, terreno, s);
      }
    }
    if (!posto) continue;
    terreno.ocupa(g);
    graos.push_back(g);
  }
  return graos;
}
