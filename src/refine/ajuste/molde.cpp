#include "refine/ajuste/molde.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "refine/ajuste/sistema.h"
#include "refine/contorno/numeros.h"

namespace refine {

namespace {

constexpr double menorSigma = 0.8;  // the picture was smoothed by as much
constexpr double maiorSigma = 7;
constexpr double declivesUsuais = 0.12;  // of the step a pixel: deviation of slopes before seen
constexpr double desacerto = 0.002;      // of the step: how far edges differ from the mould

// The parts of a mould at one place, u pixels outward from the edge.
struct LUGAR_DO_MOLDE {
  double u, f, F;  // density and sum of the bell

  LUGAR_DO_MOLDE(const MOLDE& m, double t) : u(t - m.onde) {
    const double z = u / m.sigma;
    f = 0.3989422804014327 * exponencial(-z * z / 2);
    F = acumulada(z);
  }
};

constexpr std::size_t incognitas = 6;  // both greys and slopes, place, deviation
using LINHA = std::array<double, incognitas>;
using MATRIZ = std::array<LINHA, incognitas>;

LINHA derivadas(const MOLDE& m, double t) {
  const LUGAR_DO_MOLDE p(m, t);
  const double rampa = m.degrau() * p.f / m.sigma;
  return {1 - p.F,
          p.u * (1 - p.F) - m.sigma * p.f,
          p.F,
          p.u * p.F + m.sigma * p.f,
          -(rampa + m.decliveDentro * (1 - p.F) + m.decliveFora * p.F),
          -rampa * p.u / m.sigma + (m.decliveFora - m.decliveDentro) * p.f};
}

// The mean profile, and what single profiles differ from it by, but for light and place.
struct MEDIA {
  int primeiro = 0;  // point
  std::vector<double> grey;
  double variancia = 0;  // of a point of the mean
};

MEDIA media(const PERFIS& p, std::span<const double> pesos, JANELA janela) {
  MEDIA m;
  const auto pontos = [&](double longe) {
    return std::min(p.meio, static_cast<int>(longe / p.passo));
  };
  m.primeiro = -pontos(janela.dentro);
  const int ultimo = pontos(janela.fora);
  double total = 0;
  for (const double x : pesos) total += x;
  for (int k = m.primeiro; k <= ultimo; ++k) {
    double s = 0;
    for (std::size_t i = 0; i < pesos.size(); ++i) s += pesos[i] * p.em(k, i);
    m.grey.push_back(s / total);
  }
  const auto n = static_cast<int>(m.grey.size());
  const auto grey = [&](int k) {
    return m.grey[static_cast<std::size_t>(std::clamp(k, 0, n - 1))];
  };
  std::vector<double> rampa;
  double media = 0;
  for (int k = 0; k < n; ++k) {
    rampa.push_back(grey(k + 1) - grey(k - 1));
    media += rampa.back() / n;
  }
  double quadrado = 1e-12;
  for (double& x : rampa) {
    x -= media;
    quadrado += x * x;
  }
  std::vector<double> restos;
  for (std::size_t i = 0; i < pesos.size(); ++i) {
    if (!(pesos[i] > 0)) continue;
    double s = 0;
    double s2 = 0;
    double r = 0;
    for (int k = 0; k < n; ++k) {
      const double e = p.em(k + m.primeiro, i) - grey(k);
      s += e;
      s2 += e * e;
      r += e * rampa[static_cast<std::size_t>(k)];
    }
    restos.push_back(std::max(0.0, s2 - s * s / n - r * r / quadrado) / std::max(1, n - 2));
  }
  // The middle one: near corners and neighbours they differ by more than noise.
  const auto meio = restos.begin() + static_cast<std::ptrdiff_t>(restos.size() / 2);
  std::nth_element(restos.begin(), meio, restos.end());
  m.variancia = *meio / std::max(1.0, total / ruidoIgual);
  return m;
}

// As if there were no slopes beside the edge: the steepest rise tells the blur.
MOLDE primeiroMolde(const MEDIA& visto, double passo) {
  MOLDE m;
  m.dentro = visto.grey.front();
  m.fora = visto.grey.back();
  double rampa = 1e-6;
  for (std::size_t k = 2; k < visto.grey.size(); ++k) {
    rampa = std::max(rampa, (visto.grey[k] - visto.grey[k - 2]) / (2 * passo));
  }
  m.sigma = std::clamp(0.3989422804014327 * m.degrau() / rampa, menorSigma, maiorSigma);
  return m;
}

void anda(MOLDE& m, const LINHA& v) {
  m.dentro += v[0];
  m.decliveDentro += v[1];
  m.fora += v[2];
  m.decliveFora += v[3];
  m.onde += std::clamp(v[4], -0.7, 0.7);
  m.sigma =
      std::clamp(m.sigma + std::clamp(v[5], -0.4 * m.sigma, 0.4 * m.sigma), menorSigma, maiorSigma);
}

}  // namespace

double MOLDE::em(double t) const {
  const LUGAR_DO_MOLDE p(*this, t);
  return (dentro + decliveDentro * p.u) * (1 - p.F) + (fora + decliveFora * p.u) * p.F +
         (decliveFora - decliveDentro) * sigma * p.f;
}

double MOLDE::decliveEm(double t) const {
  return -derivadas(*this, t)[4];
}

std::optional<MOLDE> molda(const PERFIS& perfis, std::span<const double> pesos, JANELA janela,
                           const MOLDE& inicio) {
  constexpr int passos = 8;
  constexpr double parada = 0.002;
  double w = 0;
  for (const double x : pesos) w += x;
  if (!(w > 0)) return std::nullopt;
  const MEDIA visto = media(perfis, pesos, janela);
  MOLDE m = inicio.degrau() > 0 ? inicio : primeiroMolde(visto, perfis.passo);
  if (!(m.degrau() > 0)) return std::nullopt;
  for (int volta = 0; volta < passos; ++volta) {
    const double falta = desacerto * m.degrau();
    const double informa = 1 / (visto.variancia * ruidoIgual / perfis.passo + falta * falta);
    const double usual = declivesUsuais * m.degrau();
    MATRIZ n{};
    LINHA lado{};
    n[1][1] = n[3][3] = 1 / (usual * usual);
    lado[1] = -m.decliveDentro * n[1][1];
    lado[3] = -m.decliveFora * n[3][3];
    for (std::size_t k = 0; k < visto.grey.size(); ++k) {
      const double t = (visto.primeiro + static_cast<int>(k)) * perfis.passo;
      const double e = visto.grey[k] - m.em(t);
      const LINHA d = derivadas(m, t);
      for (std::size_t i = 0; i < incognitas; ++i) {
        for (std::size_t j = 0; j <= i; ++j) n[i][j] += informa * d[i] * d[j];
        lado[i] += informa * d[i] * e;
      }
    }
    for (std::size_t i = 0; i < incognitas; ++i) n[i][i] *= 1 + 1e-9;
    const std::optional<LINHA> v = resolveSimetrico<incognitas>(n, lado);
    if (!v) return std::nullopt;
    anda(m, *v);
    LINHA um{};
    um[4] = 1;
    m.erro = std::sqrt(std::max(0.0, (*resolveSimetrico<incognitas>(n, um))[4]));
    if (!(m.degrau() > 0)) return std::nullopt;
    if (std::fabs((*v)[4]) < parada && std::fabs((*v)[5]) < parada) break;
  }
  const bool dentroDaJanela = m.onde > -janela.dentro && m.onde < janela.fora;
  if (!dentroDaJanela) return std::nullopt;
  return m;
}

namespace {

// What to multiply the points of a profile by to get its contrast in steps of the mould, and that
// times its shift outward.
struct FILTRO {
  int meio = 0;
  std::vector<double> contraste, deslocamento;
};

// Least squares of light, contrast and shift, the points about the edge weighing by a bell.
FILTRO filtro(const MOLDE& m, double passo, int maior) {
  FILTRO f;
  const double longe = 2 * m.sigma + 0.5 + std::fabs(m.onde);
  f.meio = std::min(maior, static_cast<int>(std::lround(longe / passo)));
  const double larga = 0.7 * m.sigma;
  std::array<std::array<double, 3>, 3> n{};
  std::vector<std::array<double, 3>> base;
  std::vector<double> peso;
  const double meio = (m.dentro + m.fora) / 2;
  for (int k = -f.meio; k <= f.meio; ++k) {
    const double t = k * passo;
    const double z = (t - m.onde) / larga;
    base.push_back({1, m.em(t) - meio, -m.decliveEm(t)});
    peso.push_back(exponencial(-z * z / 2));
    for (std::size_t i = 0; i < 3; ++i) {
      for (std::size_t j = 0; j <= i; ++j) n[i][j] += peso.back() * base.back()[i] * base.back()[j];
    }
  }
  for (const std::size_t qual : {std::size_t{1}, std::size_t{2}}) {
    std::array<double, 3> um{};
    um[qual] = 1;
    const auto linha = resolveSimetrico<3>(n, um);
    std::vector<double>& v = qual == 1 ? f.contraste : f.deslocamento;
    if (!linha) return {};
    for (std::size_t k = 0; k < base.size(); ++k) {
      v.push_back(peso[k] *
                  ((*linha)[0] * base[k][0] + (*linha)[1] * base[k][1] + (*linha)[2] * base[k][2]));
    }
  }
  return f;
}

}  // namespace

void deslocaPorMolde(const PERFIS& perfis, const MOLDE& molde, std::span<const BORDA> bordas,
                     std::vector<double>& deslocamentos) {
  constexpr double perto = 1;
  const FILTRO f = filtro(molde, perfis.passo, perfis.meio);
  deslocamentos.resize(bordas.size());
  for (std::size_t i = 0; i < bordas.size(); ++i) {
    const BORDA& x = bordas[i];
    deslocamentos[i] = x.desvio;
    if (!x.ha || f.contraste.empty()) continue;
    const double longe = x.desvio - molde.onde;
    int inicio =
        std::fabs(longe) < perto ? 0 : static_cast<int>(std::floor(longe / perfis.passo + 0.5));
    inicio = std::clamp(inicio, f.meio - perfis.meio, perfis.meio - f.meio);
    double contraste = 0;
    double produto = 0;
    int k = inicio - f.meio;
    for (std::size_t j = 0; j < f.contraste.size(); ++j, ++k) {
      const double g = perfis.em(k, i);
      contraste += f.contraste[j] * g;
      produto += f.deslocamento[j] * g;
    }
    if (contraste < 0.2) continue;
    const double passo = produto / std::clamp(contraste, 0.5, 2.0);
    const double maior = 1.5 * molde.sigma;
    deslocamentos[i] = molde.onde + inicio * perfis.passo + std::clamp(passo, -maior, maior);
  }
}

}  // namespace refine
