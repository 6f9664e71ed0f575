#include "filter/silhueta.h"

#include <bit>

namespace {

// Stretches kept at most, 12 bytes each.
constexpr std::size_t maximoDeTrechos = 4 << 20;

}  // namespace

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
  cv::Mat_<unsigned char> mascara;
  mascaraMaxLocal(m, mascara);
  SILHUETA nova = silhueta(mascara);
  trechosGuardados += nova.trechos.size() + 1;
  return feitas.emplace(chave, std::move(nova)).first->second;
}

void SILHUETAS::arruma() {
  if (trechosGuardados <= maximoDeTrechos) return;
  feitas.clear();
  trechosGuardados = 0;
}
