#include "textura/mapa.h"

#include <algorithm>
#include <cmath>
#include <opencv2/imgproc.hpp>

#include "pim/converte.h"
#include "refine/paralelo.h"

namespace textura {
namespace {

constexpr int miolo = 1088;  // side of what is kept of a tile
constexpr int margem = 96;   // around it: more than the network sees of a pixel's surroundings

struct LADRILHO {
  std::size_t foto;
  cv::Rect fica;
};

std::vector<LADRILHO> ladrilha(const std::vector<cv::Mat_<unsigned char>>& fotos) {
  std::vector<LADRILHO> v;
  for (std::size_t i = 0; i < fotos.size(); ++i) {
    const cv::Rect tudo({0, 0}, fotos[i].size());
    // A picture that is not much larger than a tile is one, which saves margins.
    const bool um = std::max(tudo.width, tudo.height) <= miolo + 2 * margem;
    const int lado = um ? miolo + 2 * margem : miolo;
    for (int l = 0; l < tudo.height; l += lado) {
      for (int c = 0; c < tudo.width; c += lado)
        v.push_back({i, cv::Rect(c, l, lado, lado) & tudo});
    }
  }
  return v;
}

int multiplo(int n) {
  return (n + passoDaRede - 1) / passoDaRede * passoDaRede;
}

// What the network is shown for a tile: it begins at a multiple of the network's step, so that
// every tile sees the same cells; what lies beyond the picture is mirrored.
cv::Mat_<float> entrada(const cv::Mat_<unsigned char>& foto, const cv::Rect& vista, const TOM& t) {
  cv::Mat_<unsigned char> cheia;
  cv::copyMakeBorder(foto(vista), cheia, 0, multiplo(vista.height) - vista.height, 0,
                     multiplo(vista.width) - vista.width, cv::BORDER_REFLECT);
  cv::Mat_<float> x;
  pim::converte(cheia, x, 1 / t.desvio, -t.media / t.desvio);
  return x;
}

unsigned char probabilidade(float x) {
  return cv::saturate_cast<unsigned char>(255 / (1 + std::exp(-static_cast<double>(x))));
}

// Puts what belongs to `fica` of the values that the network gave for `vista` into a map.
void desdobra(const cv::Mat& valores, int qual, const cv::Rect& vista, const cv::Rect& fica,
              cv::Mat_<unsigned char>& mapa) {
  for (int l = fica.y; l < fica.y + fica.height; ++l) {
    for (int c = fica.x; c < fica.x + fica.width; ++c) {
      const int dl = l - vista.y;
      const int dc = c - vista.x;
      const int plano = 4 * qual + 2 * (dl % 2) + dc % 2;
      mapa(l, c) = probabilidade(valores.ptr<float>(0, plano, dl / 2)[dc / 2]);
    }
  }
}

void calcula(const cv::Mat_<unsigned char>& foto, const cv::Rect& fica, const TOM& t,
             CALCULO& calculo, MAPA& mapa) {
  const cv::Rect tudo({0, 0}, foto.size());
  const cv::Rect vista = cv::Rect(fica.x - margem, fica.y - margem, fica.width + 2 * margem,
                                  fica.height + 2 * margem) &
                         tudo;
  const cv::Mat valores = calculo(entrada(foto, vista, t));
  desdobra(valores, 0, vista, fica, mapa.dentro);
  desdobra(valores, 1, vista, fica, mapa.limite);
  desdobra(valores, 2, vista, fica, mapa.distancia);
}

}  // namespace

TOM tom(const cv::Mat_<unsigned char>& foto) {
  double soma = 0;
  double quadrados = 0;
  for (int l = 0; l < foto.rows; ++l) {
    long long s = 0;  // exact, so that the order of adding is nothing
    long long q = 0;
    for (int c = 0; c < foto.cols; ++c) {
      s += foto(l, c);
      q += foto(l, c) * foto(l, c);
    }
    soma += static_cast<double>(s);
    quadrados += static_cast<double>(q);
  }
  const auto n = static_cast<double>(foto.total());
  const double media = soma / n;
  return {media, std::max(menorDesvio, std::sqrt(std::max(0.0, quadrados / n - media * media)))};
}

std::vector<MAPA> mapeia(const std::vector<cv::Mat_<unsigned char>>& fotos, const TOM& t,
                         const REDE& rede, int fios) {
  std::vector<MAPA> v;
  for (const auto& f : fotos) {
    const auto novo = [&f] { return cv::Mat_<unsigned char>(f.size()); };
    v.push_back({novo(), novo(), novo()});
  }
  struct MESA {
    CALCULO calculo;
  };
  const std::vector<LADRILHO> ladrilhos = ladrilha(fotos);
  refine::paraTodos<MESA>(
      ladrilhos.size(), fios, {},
      [&](std::size_t i, MESA& mesa) {
        if (!mesa.calculo) mesa.calculo = modulo().constroi(rede);
        calcula(fotos[ladrilhos[i].foto], ladrilhos[i].fica, t, mesa.calculo, v[ladrilhos[i].foto]);
      },
      1);
  return v;
}

}  // namespace textura
