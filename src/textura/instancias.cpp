#include "textura/instancias.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <unordered_map>

namespace textura {
namespace {

void junta(SOMAS& s, int l, int c, const MAPA& mapa) {
  s.caixa |= cv::Rect(c, l, 1, 1);
  ++s.n;
  s.l += l;
  s.c += c;
  s.ll += static_cast<long long>(l) * l;
  s.lc += static_cast<long long>(l) * c;
  s.cc += static_cast<long long>(c) * c;
  s.dentro += mapa.dentro(l, c);
  s.limite += mapa.limite(l, c);
  s.pico = std::max<int>(s.pico, mapa.distancia(l, c));
}

}  // namespace

std::vector<SOMAS> soma(const cv::Mat_<int>& rotulos, const MAPA& mapa) {
  std::vector<SOMAS> v;
  for (int l = 0; l < rotulos.rows; ++l) {
    for (int c = 0; c < rotulos.cols; ++c) {
      if (rotulos(l, c) == 0) continue;
      const auto k = static_cast<std::size_t>(rotulos(l, c)) - 1;
      if (k >= v.size()) v.resize(k + 1);
      junta(v[k], l, c, mapa);
    }
  }
  return v;
}

refine::FIGURA elipse(const SOMAS& s) {
  const auto n = static_cast<double>(s.n);
  const double ml = static_cast<double>(s.l) / n;
  const double mc = static_cast<double>(s.c) / n;
  constexpr double doPixel = 1.0 / 12;  // second moment of a pixel's own square
  const double ll = static_cast<double>(s.ll) / n - ml * ml + doPixel;
  const double cc = static_cast<double>(s.cc) / n - mc * mc + doPixel;
  const double lc = static_cast<double>(s.lc) / n - ml * mc;
  const double meio = (ll + cc) / 2;
  const double desvio = std::sqrt((ll - cc) * (ll - cc) / 4 + lc * lc);
  const double razao = std::sqrt((meio + desvio) / std::max(meio - desvio, doPixel));
  const double d = std::sqrt(4 * n / std::numbers::pi);  // of the circle of equal area
  refine::FIGURA f{'e', ml, mc, d * std::sqrt(razao), d / std::sqrt(razao), 0};
  f.ang = refine::angulo(2 * lc, cc - ll) / 2;
  return refine::normal(f);
}

std::vector<PAR> pares(const cv::Mat_<int>& a, const std::vector<SOMAS>& sa, const cv::Mat_<int>& b,
                       const std::vector<SOMAS>& sb) {
  std::unordered_map<std::uint64_t, long long> comum;
  for (int l = 0; l < a.rows; ++l) {
    for (int c = 0; c < a.cols;) {
      const int ra = a(l, c);
      const int rb = b(l, c);
      const int de = c;
      while (c < a.cols && a(l, c) == ra && b(l, c) == rb) ++c;
      if (ra == 0 || rb == 0) continue;
      comum[(static_cast<std::uint64_t>(ra) << 32U) | static_cast<std::uint64_t>(rb)] += c - de;
    }
  }
  std::vector<PAR> v(sa.size());
  for (const auto& [chave, n] : comum) {
    const auto ka = static_cast<std::size_t>(chave >> 32U) - 1;
    const auto outro = static_cast<int>(chave & 0xFFFFFFFFU);
    const long long uniao = sa[ka].n + sb[static_cast<std::size_t>(outro) - 1].n - n;
    const double parte = static_cast<double>(n) / static_cast<double>(uniao);
    PAR& p = v[ka];  // the order of the pairs is left to chance: the lower label wins a tie
    if (parte > p.parte || (parte == p.parte && outro < p.outro)) p = {outro, parte};
  }
  return v;
}

}  // namespace textura
