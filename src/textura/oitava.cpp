#include "textura/oitava.h"

#include <algorithm>
#include <cmath>
#include <opencv2/imgproc.hpp>

namespace textura {
namespace {

constexpr CORTE corte;

cv::Mat_<unsigned char> espelhada(const cv::Mat_<unsigned char>& a) {
  cv::Mat_<unsigned char> b;
  cv::flip(a, b, 1);
  return b;
}

// In whole numbers, the same on every processor.
cv::Mat_<unsigned char> noTamanho(const cv::Mat_<unsigned char>& a, cv::Size tamanho) {
  cv::Mat_<unsigned char> b;
  cv::resize(a, b, tamanho, 0, 0, cv::INTER_LINEAR_EXACT);
  return b;
}

template <class FAZ>
MAPA cada(const MAPA& m, FAZ faz) {
  return {faz(m.dentro), faz(m.limite), faz(m.distancia)};
}

// The views of a photograph as maps of its size.
std::vector<MAPA> vistas(const cv::Mat_<unsigned char>& foto, const TOM& t, const REDE& rede,
                         int fios) {
  const auto menor = [](int n) { return std::max(1, (n * 707 + 500) / 1000); };
  std::vector<cv::Mat_<unsigned char>> fotos = {foto, espelhada(foto)};
  fotos.push_back(noTamanho(foto, cv::Size(menor(foto.cols), menor(foto.rows))));
  std::vector<MAPA> v = mapeia(fotos, t, rede, fios);
  v[1] = cada(v[1], espelhada);
  v[2] = cada(v[2], [&foto](const auto& m) { return noTamanho(m, foto.size()); });
  return v;
}

cv::Mat_<unsigned char> media(const std::vector<MAPA>& v, cv::Mat_<unsigned char> MAPA::*qual) {
  cv::Mat_<unsigned char> m((v[0].*qual).size());
  for (int l = 0; l < m.rows; ++l) {
    for (int c = 0; c < m.cols; ++c) {
      int s = 0;
      for (const MAPA& x : v) s += (x.*qual)(l, c);
      const auto n = static_cast<int>(v.size());
      m(l, c) = static_cast<unsigned char>((s + n / 2) / n);
    }
  }
  return m;
}

cv::Mat_<int> separa(const MAPA& m) {
  cv::Mat_<unsigned char> relevo = m.distancia.clone();
  constexpr int metade = 128;
  for (int l = 0; l < relevo.rows; ++l) {
    for (int c = 0; c < relevo.cols; ++c) {
      unsigned char& r = relevo(l, c);
      r = m.dentro(l, c) < metade ? 0 : std::max<unsigned char>(r, 1);
    }
  }
  return inunda(relevo, corte);
}

// How far the second figure is from the first.
std::array<double, 5> diferenca(const refine::FIGURA& a, const refine::FIGURA& b) {
  double ang = std::fabs(a.ang - b.ang);
  ang = std::min(ang, 180 - ang);
  return {a.l - b.l, a.c - b.c, a.d1 - b.d1, a.d2 - b.d2, ang};
}

// Compares each instance with what every view alone has in its place.
void compara(OITAVA& o, const std::vector<MAPA>& v) {
  o.acordos.resize(o.instancias.size());
  std::vector<int> quantas(o.instancias.size(), 0);
  for (const MAPA& m : v) {
    const cv::Mat_<int> rotulos = separa(m);
    const std::vector<SOMAS> somas = soma(rotulos, m);
    const std::vector<PAR> p = pares(o.rotulos, o.instancias, rotulos, somas);
    for (std::size_t k = 0; k < p.size(); ++k) {
      o.acordos[k].parte += p[k].parte / static_cast<double>(v.size());
      if (p[k].parte < 0.5) continue;
      ++quantas[k];
      const auto d = diferenca(elipse(o.instancias[k]),
                               elipse(somas[static_cast<std::size_t>(p[k].outro) - 1]));
      for (std::size_t i = 0; i < d.size(); ++i) o.acordos[k].erro[i] += d[i] * d[i];
    }
  }
  for (std::size_t k = 0; k < quantas.size(); ++k) {
    for (double& e : o.acordos[k].erro) e = std::sqrt(e / std::max(quantas[k], 1));
  }
}

}  // namespace

OITAVA vejaOitava(const cv::Mat_<unsigned char>& foto, const TOM& t, const REDE& rede, int fios) {
  const std::vector<MAPA> v = vistas(foto, t, rede, fios);
  OITAVA o;
  o.mapa = {media(v, &MAPA::dentro), media(v, &MAPA::limite), media(v, &MAPA::distancia)};
  o.rotulos = separa(o.mapa);
  o.instancias = soma(o.rotulos, o.mapa);
  compara(o, v);
  return o;
}

}  // namespace textura
