#include "refine/ajuste/ajuste.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <optional>

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

// Solves the symmetric system of N unknowns by the factors L D L^T; nothing when it has no unique
// solution.
template <std::size_t N>
std::optional<VETOR> resolveDe(const SISTEMA& s, VETOR b) {
  SISTEMA f;      // below the diagonal L, above it D L^T
  VETOR inverso;  // of D
  for (std::size_t i = 0; i < N; ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      double x = s[i][j];
      for (std::size_t k = 0; k < j; ++k) x -= f[i][k] * f[k][j];
      f[j][i] = x;
      f[i][j] = x * inverso[j];
    }
    double x = s[i][i];
    for (std::size_t k = 0; k < i; ++k) x -= f[i][k] * f[k][i];
    if (!(x > 1e-12)) return std::nullopt;
    inverso[i] = 1 / x;
    for (std::size_t k = 0; k < i; ++k) b[i] -= f[i][k] * b[k];
  }
  for (std::size_t i = N; i-- > 0;) {
    b[i] *= inverso[i];
    for (std::size_t k = i + 1; k < N; ++k) b[i] -= f[k][i] * b[k];
  }
  return b;
}

std::optional<VETOR> resolveSistema(const SISTEMA& s, const VETOR& b, int n) {
  if (n == 3) return resolveDe<3>(s, b);
  return n == 4 ? resolveDe<4>(s, b) : resolveDe<5>(s, b);
}

// Blurred edges that curve are seen too far in, by curvature times variance of the blur over 2.
double recuo(const AMOSTRA& a, const BORDA& b) {
  constexpr double doDeclive = 1.0 / 3;  // what taking the slope over two pixels adds
  return a.curvatura * std::clamp(b.largura2 - doDeclive, 0.64, 9.0) / 2;
}

}  // namespace

namespace {

// The sums of the equations of `N` unknowns; the scatter only where it is asked for.
template <std::size_t N, bool DISPERSAO>
void somaEquacoes(double ruido, LIBERDADE l, const std::vector<double>& deslocamentos,
                  double tolerancia, const BANCADA& b, EQUACOES& q) {
  const double inclinada = 1 / (3 * ruido);
  const double perto = 1 / (tolerancia * tolerancia);
  for (std::size_t i = 0; i < b.bordas.size(); ++i) {
    const BORDA& borda = b.bordas[i];
    if (!borda.ha) continue;
    const AMOSTRA& a = b.amostras[i];
    const double e = deslocamentos[i];
    const double peso =
        std::min(1.0, borda.rampa * inclinada) * a.arco * a.peso / (1 + e * e * perto);
    const VETOR d = derivadas(a, l);
    for (std::size_t j = 0; j < N; ++j) {
      const double pd = peso * d[j];
      for (std::size_t k = 0; k <= j; ++k) q.matriz[j][k] += pd * d[k];
      q.lado[j] += pd * e;
      if constexpr (DISPERSAO) {
        for (std::size_t k = 0; k <= j; ++k) q.dispersao[j][k] += pd * e * (peso * e * d[k]);
      }
    }
  }
}

template <bool DISPERSAO>
EQUACOES equacoesCom(const ANDAR& andar, const FIGURA& f, const std::vector<double>& deslocamentos,
                     double tolerancia, const BANCADA& b) {
  const LIBERDADE l = liberdade(f.forma);
  EQUACOES q;
  q.n = l.n;
  if (l.n == 3) {
    somaEquacoes<3, DISPERSAO>(andar.ruido, l, deslocamentos, tolerancia, b, q);
  } else if (l.n == 4) {
    somaEquacoes<4, DISPERSAO>(andar.ruido, l, deslocamentos, tolerancia, b, q);
  } else {
    somaEquacoes<5, DISPERSAO>(andar.ruido, l, deslocamentos, tolerancia, b, q);
  }
  return q;
}

}  // namespace

EQUACOES equacoes(const ANDAR& andar, const FIGURA& f, const std::vector<double>& deslocamentos,
                  double tolerancia, const BANCADA& b) {
  return equacoesCom<true>(andar, f, deslocamentos, tolerancia, b);
}

std::optional<VETOR> resolve(const EQUACOES& e, double amortecimento) {
  SISTEMA s = e.matriz;
  for (std::size_t j = 0; j < static_cast<std::size_t>(e.n); ++j) {
    s[j][j] = s[j][j] * (1 + amortecimento) + 1e-6;
  }
  return resolveSistema(s, e.lado, e.n);
}

std::optional<SISTEMA> covariancia(const EQUACOES& e) {
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
          const double d = p >= q ? e.dispersao[p][q] : e.dispersao[q][p];
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
    const std::optional<VETOR> v = resolve(
        equacoesCom<false>(andar, f, deslocamentos, 0.35 * alcance + 0.5, b), amortecimentoUsual);
    if (!v) return false;
    const double movida = move(f, *v);
    if (perdida(andar, f)) return false;
    if (movida < modo.parada) break;
  }
  return true;
}

}  // namespace refine
