#include "refine/perfil.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "refine/numeros.h"

namespace refine {

namespace {

constexpr int maximoDePassos = 32;
constexpr int maximoDaNitidez = 12;
constexpr std::size_t maximoDeGreys = 2 * (maximoDePassos + maximoDaNitidez) + 5;

// The peak of the slope along a profile of grey values.
struct PICO {
  float onde = 0;  // steps from the middle
  float rampa = 0;
  float largura2 = 1;  // square steps
};

// 2 (n + nitidez + vao) + 1 greys around the middle; slope k is over `vao` steps to either side.
struct PERFIL_LIDO {
  int n;
  int vao;
  int nitidez;
  std::array<float, maximoDeGreys> grey;

  int meio() const { return n + nitidez + vao; }
  // How much slope k counts.
  float valor(int k) const {
    if (nitidez == 0) return rampa(k);
    return rampa(k) - 0.5F * (rampa(k - nitidez) + rampa(k + nitidez));
  }
  float rampa(int k) const {
    const auto i = static_cast<std::size_t>(k + meio());
    return grey[i + static_cast<std::size_t>(vao)] - grey[i - static_cast<std::size_t>(vao)];
  }
};

// The step of the edge: where the slope counts most, or the first from inside that is a peak of at
// least `primeira`.
int passoDaBorda(const PERFIL_LIDO& p, const std::array<float, maximoDePassos + 1>& peso,
                 float primeira) {
  int melhor = 0;
  float valor = -9;
  for (int k = -p.n; k <= p.n; ++k) {
    const float r = p.rampa(k);
    const bool basta = primeira > 0 && r >= primeira && k > -p.n && k < p.n;
    if (basta && r >= p.rampa(k - 1) && r >= p.rampa(k + 1)) return k;
    const float v = p.valor(k) * peso[static_cast<std::size_t>(std::abs(k))];
    if (v > valor) {
      valor = v;
      melhor = k;
    }
  }
  return melhor;
}

PICO pico(const PERFIL_LIDO& p, int melhor) {
  PICO x;
  const float r = p.rampa(melhor);
  x.rampa = r;
  x.onde = static_cast<float>(melhor);
  if (melhor == -p.n || melhor == p.n) return x;
  // A pixel to either side, where there is room: greys between pixels are interpolated in the same
  // proportion there, and the peak is not moved by it. Of logarithms: blurred edges are bells.
  const int longe = std::abs(melhor) + p.vao <= p.n + p.nitidez ? p.vao : 1;
  const float antes = p.rampa(melhor - longe);
  const float depois = p.rampa(melhor + longe);
  if (!(antes + depois < 2 * r) || !(std::min(antes, depois) > 0.02F * r)) return x;
  const double a = logaritmo(static_cast<double>(antes) / static_cast<double>(r));
  const double b = logaritmo(static_cast<double>(depois) / static_cast<double>(r));
  if (!(a + b < -1e-6)) return x;
  x.onde += static_cast<float>(longe * std::clamp((a - b) / (2 * (a + b)), -0.5, 0.5));
  x.largura2 = static_cast<float>(-longe * longe / (a + b));
  return x;
}

}  // namespace

namespace {

// Reads the profile of one sample; false when it leaves the margins of the reduction.
bool le(const ANDAR& andar, const AMOSTRA& a, int m, double passo, float* grey) {
  const double longe = m * passo;
  const double folga = ANDAR::margem - 2 - longe;
  if (!(a.l > -folga && a.c > -folga && a.l < andar.rows - 1 + folga &&
        a.c < andar.cols - 1 + folga)) {
    return false;
  }
  const std::size_t linha = andar.liso.step1();
  const float* origem = andar.liso.ptr<float>(0);
  const auto l0 = static_cast<float>(a.l - longe * a.nl + ANDAR::margem);
  const auto c0 = static_cast<float>(a.c - longe * a.nc + ANDAR::margem);
  const auto dl = static_cast<float>(passo * a.nl);
  const auto dc = static_cast<float>(passo * a.nc);
  for (int k = 0; k <= 2 * m; ++k) {
    const float l = l0 + static_cast<float>(k) * dl;
    const float c = c0 + static_cast<float>(k) * dc;
    const int li = static_cast<int>(l);
    const int ci = static_cast<int>(c);
    const float y = l - static_cast<float>(li);
    const float x = c - static_cast<float>(ci);
    const float* p = origem + static_cast<std::size_t>(li) * linha + ci;
    const float cima = p[0] + x * (p[1] - p[0]);
    const float baixo = p[linha] + x * (p[linha + 1] - p[linha]);
    grey[k] = cima + y * (baixo - cima);
  }
  return true;
}

// Each profile becomes the mean of those around it on its side.
void junta(std::span<const AMOSTRA> amostras, const std::vector<BORDA>& bordas, int quantos, int n,
           std::vector<float>& greys) {
  const std::vector<float> antes = greys;
  const auto total = static_cast<std::ptrdiff_t>(amostras.size());
  for (std::ptrdiff_t i = 0; i < total; ++i) {
    float* meu = greys.data() + i * n;
    std::fill(meu, meu + n, 0.0F);
    float peso = 0;
    for (std::ptrdiff_t d = -quantos; d <= quantos; ++d) {
      std::ptrdiff_t j = i + d;
      const bool curva = amostras[static_cast<std::size_t>(i)].curvatura > 0;
      if (curva) j = (j + total) % total;
      if (j < 0 || j >= total) continue;
      const auto u = static_cast<std::size_t>(j);
      if (!bordas[u].visivel || amostras[u].lado != amostras[static_cast<std::size_t>(i)].lado)
        continue;
      const float* outro = antes.data() + j * n;
      for (int k = 0; k < n; ++k) meu[k] += outro[k];
      peso += 1;
    }
    if (peso > 0) {
      for (int k = 0; k < n; ++k) meu[k] /= peso;
    }
  }
}

}  // namespace

void procuraBordas(const ANDAR& andar, std::span<const AMOSTRA> amostras, ALCANCE como,
                   std::vector<BORDA>& bordas) {
  PERFIL_LIDO p{};
  p.vao = como.passo < 0.75 ? 2 : 1;
  p.nitidez = std::min(como.nitidez, maximoDaNitidez);
  p.n = std::min(maximoDePassos, static_cast<int>(std::ceil(como.alcance / como.passo)));
  std::array<float, maximoDePassos + 1> peso{};
  for (int k = 0; k <= p.n; ++k) {
    const double s = k * como.passo / como.alcance;
    peso[static_cast<std::size_t>(k)] = static_cast<float>(exponencial(-s * s / 2));
  }
  const auto passo = static_cast<float>(como.passo);
  const auto menor = static_cast<float>(andar.ruido / 2);
  const auto primeira = static_cast<float>(2 * como.primeira);  // over two pixels
  const int m = p.meio();
  const int n = 2 * m + 1;
  bordas.assign(amostras.size(), {});
  const auto procura = [&](BORDA& b, const float* grey) {
    std::copy(grey, grey + n, p.grey.begin());
    const PICO x = pico(p, passoDaBorda(p, peso, primeira));
    b.rampa = x.rampa / 2;  // over two pixels
    b.desvio = x.onde * passo;
    b.largura2 = x.largura2 * passo * passo;
    b.ha = b.rampa >= menor;
    b.dentro = grey[0];
    b.fora = grey[n - 1];
  };
  if (como.junta == 0) {
    std::array<float, maximoDeGreys> grey;
    for (std::size_t i = 0; i < amostras.size(); ++i) {
      const AMOSTRA& a = amostras[i];
      bordas[i].visivel = andar.contem(a.l, a.c) && le(andar, a, m, como.passo, grey.data());
      if (bordas[i].visivel) procura(bordas[i], grey.data());
    }
    return;
  }
  std::vector<float> greys(amostras.size() * static_cast<std::size_t>(n));
  for (std::size_t i = 0; i < amostras.size(); ++i) {
    const AMOSTRA& a = amostras[i];
    bordas[i].visivel = andar.contem(a.l, a.c) &&
                        le(andar, a, m, como.passo, greys.data() + i * static_cast<std::size_t>(n));
  }
  junta(amostras, bordas, como.junta, n, greys);
  for (std::size_t i = 0; i < amostras.size(); ++i) {
    if (bordas[i].visivel) procura(bordas[i], greys.data() + i * static_cast<std::size_t>(n));
  }
}

}  // namespace refine
