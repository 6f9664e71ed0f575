#include "refine/ajuste/perfil.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "refine/ajuste/feixe.h"
#include "refine/contorno/numeros.h"

namespace refine {

namespace {

constexpr int maximoDePassos = 32;
constexpr int maximoDaNitidez = 12;
constexpr std::size_t maximoDeGreys = 2 * (maximoDePassos + maximoDaNitidez) + 5;
constexpr std::size_t bloco = 64;  // samples whose profiles stay in the nearest cache

constexpr std::size_t cheio(std::size_t n) {
  return (n + multiploDoFeixe - 1) / multiploDoFeixe * multiploDoFeixe;
}

using PESO_DO_PASSO = std::array<float, maximoDePassos + 1>;

// exp(-s^2 / 2) for s = 0, h, 2 h... by products alone.
PESO_DO_PASSO pesos(double h, int n) {
  PESO_DO_PASSO peso{};
  double razao = exponencial(-h * h / 2);
  const double q = razao * razao;
  double g = 1;
  for (int k = 0; k <= n; ++k) {
    peso[static_cast<std::size_t>(k)] = static_cast<float>(g);
    g *= razao;
    razao *= q;
  }
  return peso;
}

// faz(first sample, number) for all, a block at a time.
template <class FAZ>
void porBloco(std::size_t total, FAZ faz) {
  for (std::size_t i = 0; i < total; i += bloco) faz(i, std::min(bloco, total - i));
}

BUSCA busca(const ALCANCE& como, const PESO_DO_PASSO& peso) {
  BUSCA b{};
  b.n = std::min(maximoDePassos, static_cast<int>(std::ceil(como.alcance / como.passo)));
  b.vao = como.passo < 0.75 ? 2 : 1;
  b.nitidez = std::min(como.nitidez, maximoDaNitidez);
  b.primeira = static_cast<float>(2 * como.primeira);  // over two pixels
  b.peso = peso.data();
  return b;
}

// Reads the profiles of some samples, `m` points to either side; `visivel` becomes false of those
// that leave the margins of the reduction.
void le(const ANDAR& andar, std::span<const AMOSTRA> amostras, int m, double passo,
        std::span<BORDA> bordas, float* greys, std::size_t salto) {
  std::array<float, bloco> l, c, dl, dc;
  const double longe = m * passo;
  const double folga = ANDAR::margem - 2 - longe;
  const double fimL = andar.rows - 1 + folga;
  const double fimC = andar.cols - 1 + folga;
  double alto = andar.rows;
  const std::size_t n = amostras.size();
  for (std::size_t i = 0; i < n; ++i) {
    const AMOSTRA& a = amostras[i];
    const bool cabe = a.l > -folga && a.c > -folga && a.l < fimL && a.c < fimC;
    bordas[i].visivel = cabe && andar.contem(a.l, a.c);
    // Those out of sight read a place that is surely there.
    l[i] = bordas[i].visivel ? static_cast<float>(a.l - longe * a.nl + ANDAR::margem) : 0;
    c[i] = bordas[i].visivel ? static_cast<float>(a.c - longe * a.nc + ANDAR::margem) : 0;
    dl[i] = bordas[i].visivel ? static_cast<float>(passo * a.nl) : 0;
    dc[i] = bordas[i].visivel ? static_cast<float>(passo * a.nc) : 0;
    if (bordas[i].visivel) alto = std::min(alto, a.l);
  }
  // Offsets from a row nearby stay small, whatever the size of the picture.
  const int linha = std::max(0, static_cast<int>(alto + ANDAR::margem - longe) - 1);
  const std::size_t ate = cheio(n);
  for (std::size_t i = 0; i < ate; ++i) {
    if (i >= n) l[i] = c[i] = dl[i] = dc[i] = 0;
    if (i >= n || !bordas[i].visivel) l[i] = static_cast<float>(linha);
  }
  const PIXELS pixels{andar.liso.ptr<float>(linha), linha, static_cast<int>(andar.liso.step1())};
  const FEIXE feixe{l.data(), c.data(), dl.data(), dc.data(), ate};
  melhorLeitor().le(pixels, feixe, 2 * m + 1, greys, salto);
}

// A side of a contour: samples `de` to `ate`, and where they begin in the rows of `junta`.
struct LADO {
  std::size_t de, ate;
  std::size_t inicio;
};

// Each profile becomes the mean of those around it on its side; a curve is one side without ends.
// One point of all of the profiles is a row of `salto` greys.
void junta(std::span<const AMOSTRA> amostras, std::span<const BORDA> bordas, int quantos,
           int pontos, std::vector<float>& greys, std::size_t salto) {
  const std::size_t total = amostras.size();
  const std::size_t q = std::min(static_cast<std::size_t>(quantos), total - 1);
  // Rows get q more samples at either end of each side: which they are, and 0 where they are none.
  std::vector<LADO> lados;
  std::vector<std::size_t> qual;
  std::vector<float> vale;
  for (std::size_t de = 0, ate = 0; de < total; de = ate) {
    while (ate < total && amostras[ate].lado == amostras[de].lado) ++ate;
    const std::size_t n = ate - de;
    lados.push_back({de, ate, qual.size()});
    for (std::size_t i = 0; i < n + 2 * q; ++i) {
      const bool alem = i < q || i >= n + q;
      qual.push_back(de + (i + n * (q / n + 1) - q) % n);
      vale.push_back((alem && amostras[de].curvatura <= 0) || !bordas[qual.back()].visivel ? 0 : 1);
    }
  }
  std::vector<float> perto(qual.size());
  std::vector<float> soma(total);
  // Sums of 2 q + 1 from those of 1, 2, 4...: `perto` holds one after the other.
  const auto somaPerto = [&] {
    for (const LADO& x : lados) {
      const std::size_t n = x.ate - x.de;
      float* s = soma.data() + x.de;
      float* p = perto.data() + x.inicio;
      std::fill_n(s, n, 0.0F);
      for (std::size_t quantas = 1, feitas = 0; feitas < 2 * q + 1; quantas *= 2) {
        if (((2 * q + 1) & quantas) != 0) {
          for (std::size_t i = 0; i < n; ++i) s[i] += p[i + feitas];
          feitas += quantas;
        }
        for (std::size_t i = 0; i + quantas < n + 2 * q; ++i) p[i] += p[i + quantas];
      }
    }
  };
  perto = vale;
  somaPerto();
  const std::vector<float> peso = soma;
  for (int k = 0; k < pontos; ++k) {
    float* linha = greys.data() + static_cast<std::size_t>(k) * salto;
    for (std::size_t i = 0; i < perto.size(); ++i) perto[i] = vale[i] * linha[qual[i]];
    somaPerto();
    for (std::size_t i = 0; i < total; ++i) linha[i] = soma[i] / std::max(peso[i], 1.0F);
  }
}

// Finds the edges in the profiles read.
void acha(const ANDAR& andar, const BUSCA& b, double passo, const float* greys, std::size_t salto,
          std::span<BORDA> bordas) {
  std::array<float, bloco> onde, rampa, largura2;
  const PICOS picos{onde.data(), rampa.data(), largura2.data()};
  melhorLeitor().acha(greys, salto, cheio(bordas.size()), b, picos);
  const auto p = static_cast<float>(passo);
  const auto menor = static_cast<float>(andar.ruido / 2);
  const float* ultimo = greys + 2 * static_cast<std::size_t>(b.n + b.nitidez + b.vao) * salto;
  for (std::size_t i = 0; i < bordas.size(); ++i) {
    BORDA& x = bordas[i];
    if (!x.visivel) continue;
    x.rampa = rampa[i] / 2;  // over two pixels
    x.desvio = onde[i] * p;
    x.largura2 = largura2[i] * p * p;
    x.ha = x.rampa >= menor;
    x.dentro = greys[i];
    x.fora = ultimo[i];
  }
}

}  // namespace

void lePerfis(const ANDAR& andar, std::span<const AMOSTRA> amostras, int meio, double passo,
              PERFIS& p, std::vector<BORDA>& bordas) {
  bordas.assign(amostras.size(), {});
  p.meio = meio;
  p.passo = passo;
  p.salto = cheio(amostras.size());
  p.greys.resize(static_cast<std::size_t>(2 * meio + 1) * p.salto);
  porBloco(amostras.size(), [&](std::size_t i, std::size_t n) {
    le(andar, amostras.subspan(i, n), meio, passo, std::span(bordas).subspan(i, n),
       p.greys.data() + i, p.salto);
  });
}

int passosDaBusca(const ALCANCE& como) {
  PESO_DO_PASSO peso{};
  const BUSCA b = busca(como, peso);
  return b.n + b.nitidez + b.vao;
}

void achaBordas(const ANDAR& andar, std::span<const AMOSTRA> amostras, const ALCANCE& como,
                PERFIS& p, std::vector<BORDA>& bordas) {
  PESO_DO_PASSO peso{};
  const BUSCA b = busca(como, peso);
  peso = pesos(como.passo / como.alcance, b.n);
  if (como.junta > 0) junta(amostras, bordas, como.junta, 2 * p.meio + 1, p.greys, p.salto);
  const auto inicio = static_cast<std::size_t>(p.meio - passosDaBusca(como)) * p.salto;
  porBloco(amostras.size(), [&](std::size_t i, std::size_t n) {
    acha(andar, b, como.passo, p.greys.data() + inicio + i, p.salto,
         std::span(bordas).subspan(i, n));
  });
}

void procuraBordas(const ANDAR& andar, std::span<const AMOSTRA> amostras, ALCANCE como,
                   std::vector<BORDA>& bordas) {
  if (como.junta > 0) {
    PERFIS p;
    lePerfis(andar, amostras, passosDaBusca(como), como.passo, p, bordas);
    achaBordas(andar, amostras, como, p, bordas);
    return;
  }
  PESO_DO_PASSO peso{};
  const BUSCA b = busca(como, peso);
  peso = pesos(como.passo / como.alcance, b.n);
  const int m = passosDaBusca(como);
  bordas.assign(amostras.size(), {});
  std::array<float, maximoDeGreys * bloco> greys;
  porBloco(amostras.size(), [&](std::size_t i, std::size_t n) {
    const std::size_t salto = cheio(n);
    const std::span<BORDA> destes = std::span(bordas).subspan(i, n);
    le(andar, amostras.subspan(i, n), m, como.passo, destes, greys.data(), salto);
    acha(andar, b, como.passo, greys.data(), salto, destes);
  });
}

}  // namespace refine
