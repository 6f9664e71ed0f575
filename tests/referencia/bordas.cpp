#include "referencia/bordas.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "refine/contorno/numeros.h"

namespace referencia {

namespace {

using refine::ALCANCE;
using refine::AMOSTRA;
using refine::ANDAR;
using refine::BORDA;

struct PERFIL {
  int n;    // steps to either side
  int vao;  // the slope of a step is over so many to either side
  std::vector<float> grey;

  float rampa(int k) const {
    const auto i = static_cast<std::size_t>(k + n + vao);
    return grey[i + static_cast<std::size_t>(vao)] - grey[i - static_cast<std::size_t>(vao)];
  }
};

bool le(const ANDAR& andar, const AMOSTRA& a, double passo, PERFIL& p) {
  const int m = p.n + p.vao;
  const double folga = ANDAR::margem - 2 - m * passo;
  if (!(a.l > -folga && a.c > -folga && a.l < andar.rows - 1 + folga &&
        a.c < andar.cols - 1 + folga)) {
    return false;
  }
  p.grey.clear();
  for (int k = -m; k <= m; ++k) {
    p.grey.push_back(andar.em(a.l + k * passo * a.nl, a.c + k * passo * a.nc));
  }
  return true;
}

// The step whose slope counts most.
int melhorPasso(const PERFIL& p, ALCANCE como) {
  int melhor = 0;
  double maior = -9;
  for (int k = -p.n; k <= p.n; ++k) {
    const double s = k * como.passo / como.alcance;
    const double v = p.rampa(k) * refine::exponencial(-s * s / 2);
    if (v > maior) {
      maior = v;
      melhor = k;
    }
  }
  return melhor;
}

}  // namespace

void procuraBordas(const ANDAR& andar, const std::vector<AMOSTRA>& amostras, ALCANCE como,
                   std::vector<BORDA>& bordas) {
  const int vao = como.passo < 0.75 ? 2 : 1;
  PERFIL p{static_cast<int>(std::ceil(como.alcance / como.passo)), vao, {}};
  bordas.assign(amostras.size(), {});
  for (std::size_t i = 0; i < amostras.size(); ++i) {
    const AMOSTRA& a = amostras[i];
    BORDA& x = bordas[i];
    x.visivel = andar.contem(a.l, a.c) && le(andar, a, como.passo, p);
    if (!x.visivel) continue;
    const int k = melhorPasso(p, como);
    const auto passo = static_cast<float>(como.passo);
    x.rampa = p.rampa(k) / 2;
    x.desvio = static_cast<float>(k) * passo;
    x.largura2 = passo * passo;
    x.ha = x.rampa >= static_cast<float>(andar.ruido / 2);
    x.dentro = p.grey.front();
    x.fora = p.grey.back();
    if (k == -p.n || k == p.n) continue;
    const float antes = p.rampa(k - 1);
    const float depois = p.rampa(k + 1);
    const float dobra = antes - 2 * p.rampa(k) + depois;
    if (!(dobra < 0) || p.rampa(k) <= 0) continue;
    x.desvio += std::clamp((antes - depois) / (2 * dobra), -0.5F, 0.5F) * passo;
    x.largura2 *= -p.rampa(k) / dobra;
  }
}

}  // namespace referencia
