#include "refine/ajuste/ajuste.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <optional>

#include "refine/ajuste/sistema.h"

namespace refine {

namespace {

constexpr double amortecimentoUsual = 0.02;

// Columns of the derivatives that the family moves: row, column, size or sizes, angle. A family of
// one size moves both together.
struct LIBERDADE {
  int n;
  bool umTamanho;
};

LIBERDADE liberdade(char forma) {
  if (forma == 'c') return {3, true};
  if (forma == 'q') return {4, true};
  return {5, false};
}

VETOR derivadas(const AMOSTRA& a, LIBERDADE l) {
  if (!l.umTamanho) return a.derivada;
  return {a.derivada[0], a.derivada[1], a.derivada[2] + a.derivada[3], a.derivada[4], 0};
}

std::optional<VETOR> resolveSistema(const SISTEMA& s, const VETOR& b, int n) {
  if (n == 3) return resolveSimetrico<3>(s, b);
  return n == 4 ? resolveSimetrico<4>(s, b) : resolveSimetrico<5>(s, b);
}

// Blurred edges that curve are seen too far in, by curvature times variance of the blur over 2.
double recuo(const AMOSTRA& a, const BORDA& b) {
  return a.curvatura * std::clamp(b.largura2 - doDeclive, 0.64, 9.0) / 2;
}

}  // namespace

namespace {

// How much an edge counts that lies `e` pixels outward from the contour.
double peso(const AMOSTRA& a, const BORDA& b, double e, double ruido, double tolerancia) {
  const double longe = e / tolerancia;
  return std::min(1.0, b.rampa / (3 * ruido)) * a.arco * a.peso / (1 + longe * longe);
}

// The sums of the equations of `N` unknowns.
template <std::size_t N>
void somaEquacoes(double ruido, LIBERDADE l, const std::vector<double>& deslocamentos,
                  double tolerancia, const BANCADA& b, EQUACOES& q) {
  for (std::size_t i = 0; i < b.bordas.size(); ++i) {
    const BORDA& borda = b.bordas[i];
    if (!borda.ha) continue;
    const AMOSTRA& a = b.amostras[i];
    const double e = deslocamentos[i];
    const double w = peso(a, borda, e, ruido, tolerancia);
    const VETOR d = derivadas(a, l);
    for (std::size_t j = 0; j < N; ++j) {
      const double pd = w * d[j];
      for (std::size_t k = 0; k <= j; ++k) q.matriz[j][k] += pd * d[k];
      q.lado[j] += pd * e;
    }
  }
}

}  // namespace

EQUACOES equacoes(const ANDAR& andar, const FIGURA& f, const std::vector<double>& deslocamentos,
                  double tolerancia, const BANCADA& b) {
  const LIBERDADE l = liberdade(f.forma);
  EQUACOES q;
  q.n = l.n;
  if (l.n == 3) {
    somaEquacoes<3>(andar.ruido, l, deslocamentos, tolerancia, b, q);
  } else if (l.n == 4) {
    somaEquacoes<4>(andar.ruido, l, deslocamentos, tolerancia, b, q);
  } else {
    somaEquacoes<5>(andar.ruido, l, deslocamentos, tolerancia, b, q);
  }
  return q;
}

SISTEMA dispersao(const ANDAR& andar, const FIGURA& f, const std::vector<double>& deslocamentos,
                  double tolerancia, int vizinhas, const BANCADA& b) {
  const LIBERDADE l = liberdade(f.forma);
  const auto n = static_cast<std::size_t>(l.n);
  const std::size_t total = b.bordas.size();
  std::vector<VETOR> partes(total);
  for (std::size_t i = 0; i < total; ++i) {
    if (!b.bordas[i].ha) continue;
    const double e = deslocamentos[i];
    const VETOR d = derivadas(b.amostras[i], l);
    const double p = peso(b.amostras[i], b.bordas[i], e, andar.ruido, tolerancia) * e;
    for (std::size_t j = 0; j < n; ++j) partes[i][j] = p * d[j];
  }
  SISTEMA s{};
  const auto soma = [&](const VETOR& x, const VETOR& y, double quanto) {
    for (std::size_t j = 0; j < n; ++j) {
      for (std::size_t k = 0; k <= j; ++k) s[j][k] += quanto * (x[j] * y[k] + x[k] * y[j]) / 2;
    }
  };
  const bool roda = f.forma == 'c' || f.forma == 'e';
  for (std::size_t i = 0; i < total; ++i) {
    soma(partes[i], partes[i], 1);
    for (int v = 1; v <= vizinhas; ++v) {
      std::size_t j = i + static_cast<std::size_t>(v);
      if (j >= total && !roda) break;
      j %= total;
      if (b.amostras[j].lado != b.amostras[i].lado) break;
      soma(partes[i], partes[j], 2 * (1 - static_cast<double>(v) / (vizinhas + 1)));
    }
  }
  return s;
}

std::optional<VETOR> resolve(const EQUACOES& e, double amortecimento) {
  SISTEMA s = e.matriz;
  for (std::size_t j = 0; j < static_cast<std::size_t>(e.n); ++j) {
    s[j][j] = s[j][j] * (1 + amortecimento) + 1e-6;
  }
  return resolveSistema(s, e.lado, e.n);
}

std::optional<SISTEMA> covariancia(const EQUACOES& e, const SISTEMA& dispersao) {
  const auto n = static_cast<std::size_t>(e.n);
  SISTEMA inversa{};
  for (std::size_t j = 0; j < n; ++j) {
    VETOR um{};
    um[j] = 1;
    const std::optional<VETOR> v = resolveSistema(e.matriz, um, e.n);
    if (!v) return std::nullopt;
    inversa[j] = *v;
  }
  SISTEMA c{};
  for (std::size_t j = 0; j < n; ++j) {
    for (std::size_t k = 0; k < n; ++k) {
      for (std::size_t p = 0; p < n; ++p) {
        for (std::size_t q = 0; q < n; ++q) {
          const double d = p >= q ? dispersao[p][q] : dispersao[q][p];
          c[j][k] += inversa[j][p] * d * inversa[q][k];
        }
      }
    }
  }
  return c;
}

// Moves the shape by the step, no farther than is sound; returns the farthest that anything moved.
double move(FIGURA& f, const VETOR& v) {
  const double limite = 0.3 * menorMetade(f) + 0.5;
  const auto contido = [&](double x, double maior) { return std::clamp(x, -maior, maior); };
  const LIBERDADE l = liberdade(f.forma);
  const double dl = contido(v[0], limite);
  const double dc = contido(v[1], limite);
  const double d1 = contido(v[2], 2 * limite);
  const double d2 = l.umTamanho ? d1 : contido(v[3], 2 * limite);
  const double giro = l.n == 3 ? 0 : contido(v[static_cast<std::size_t>(l.n) - 1], 0.35);
  f.l += dl;
  f.c += dc;
  f.d1 += d1;
  f.d2 += d2;
  f.ang += giro * (180 / std::numbers::pi);
  const double braco = std::max(f.d1, f.d2) / 2;
  return std::max({std::fabs(dl), std::fabs(dc), std::fabs(d1) / 2, std::fabs(d2) / 2,
                   std::fabs(giro) * braco});
}

bool perdida(const ANDAR& andar, const FIGURA& f) {
  constexpr double menorTamanho = 2;
  const bool pequena = !(f.d1 >= menorTamanho && f.d2 >= menorTamanho);
  return pequena || !andar.contem(f.l, f.c) || f.d1 > 4 * (andar.rows + andar.cols) ||
         f.d2 > 4 * (andar.rows + andar.cols);
}

FIGURA noAndar(const FIGURA& f, int nivel) {
  if (nivel == 0) return f;
  const double k = std::ldexp(1.0, -nivel);
  return {f.forma, (f.l + 0.5) * k - 0.5, (f.c + 0.5) * k - 0.5, f.d1 * k, f.d2 * k, f.ang};
}

FIGURA naFoto(const FIGURA& f, int nivel) {
  if (nivel == 0) return f;
  const double k = std::ldexp(1.0, nivel);
  return {f.forma, (f.l + 0.5) * k - 0.5, (f.c + 0.5) * k - 0.5, f.d1 * k, f.d2 * k, f.ang};
}

double alcanceUsual(const FIGURA& f) {
  return std::clamp(0.4 * menorMetade(f), 2.0, 8.0);
}

bool ajusta(const ANDAR& andar, FIGURA& f, const MODO& modo, BANCADA& b) {
  constexpr std::array<double, 3> encolhe = {1, 0.7, 0.5};
  std::vector<double>& deslocamentos = b.deslocamentos;
  for (int k = 0; k < modo.passos; ++k) {
    const double parte = encolhe[static_cast<std::size_t>(std::min(k, 2))];
    const double alcance = std::max(1.5, alcanceUsual(f) * modo.alcance * parte);
    amostra(f, modo.amostras, b.amostras);
    procuraBordas(andar, b.amostras, {alcance, modo.passoDoPerfil}, b.bordas);
    deslocamentos.resize(b.bordas.size());
    for (std::size_t i = 0; i < b.bordas.size(); ++i) {
      deslocamentos[i] = b.bordas[i].desvio + recuo(b.amostras[i], b.bordas[i]);
    }
    const std::optional<VETOR> v =
        resolve(equacoes(andar, f, deslocamentos, 0.35 * alcance + 0.5, b), amortecimentoUsual);
    if (!v) return false;
    const double movida = move(f, *v);
    if (perdida(andar, f)) return false;
    if (movida < modo.parada) break;
  }
  return true;
}

}  // namespace refine
