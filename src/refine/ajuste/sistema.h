#pragma once

#include <array>
#include <cstddef>
#include <optional>

namespace refine {

// Solves the symmetric system of the first N unknowns by the factors L D L^T, of which only the
// lower half of `s` is read; nothing when it has no unique solution.
template <std::size_t N, class MATRIZ, class LADO>
std::optional<LADO> resolveSimetrico(const MATRIZ& s, LADO b) {
  MATRIZ f;                         // below the diagonal L, above it D L^T
  std::array<double, N> inverso{};  // of D
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

}  // namespace refine
