#include "filter/silhueta.h"

#include <bit>

#include "kernels/formas.h"

namespace {

// Stretches kept at most, 12 bytes each.
constexpr std::size_t maximoDeTrechos = 4 << 20;

SILHUETA silhuetaDe(const MAXLOCAL& m) {
  const PERFIL p = perfil(m.forma, m.d1, m.d2, m.ang);
  SILHUETA s;
  s.rows = p.lado;
  s.cols = p.lado;
  for (int y = 0; y < p.lado; ++y) {
    const pim::TRECHO t = p.linha(y);
    if (t.de > t.ate) continue;
    s.trechos.push_back({y - p.lado / 2, t.de, t.ate});
    s.pixels += t.ate - t.de + 1;
  }
  return s;
}

}  // namespace

// The bits of sizes and angles differ in their upper half; multiplying mixes them downward.
std::size_t SILHUETAS::MISTURA::operator()(const CHAVE& chave) const {
  std::uint64_t h = 0;
  for (const std::uint64_t x : chave) {
    h = (h ^ x) * 0x9E3779B97F4A7C15U;
    h ^= h >> 32;
  }
  return h;
}

SILHUETA silhueta(const cv::Mat_<unsigned char>& mascara) {
  SILHUETA s;
  s.rows = mascara.rows;
  s.cols = mascara.cols;
  for (int l = 0; l < mascara.rows; ++l) {
    const unsigned char* linha = mascara[l];
    int c = 0;
    while (c < mascara.cols) {
      const int de = c;
      while (c < mascara.cols && linha[c] == 0) ++c;
      if (c > de) {
        s.trechos.push_back({l - s.rows / 2, de - s.cols / 2, c - 1 - s.cols / 2});
        s.pixels += c - de;
      } else {
        ++c;
      }
    }
  }
  return s;
}

const SILHUETA& SILHUETAS::de(const MAXLOCAL& m) {
  const CHAVE chave = {static_cast<unsigned char>(m.forma), std::bit_cast<std::uint64_t>(m.d1),
                       std::bit_cast<std::uint64_t>(m.d2), std::bit_cast<std::uint64_t>(m.ang)};
  const auto achada = feitas.find(chave);
  if (achada != feitas.end()) return achada->second;
  SILHUETA nova = silhuetaDe(m);
  trechosGuardados += nova.trechos.size() + 1;
  return feitas.emplace(chave, std::move(nova)).first->second;
}

void SILHUETAS::arruma() {
  if (trechosGuardados <= maximoDeTrechos) return;
  feitas.clear();
  trechosGuardados = 0;
}
