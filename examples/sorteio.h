#pragma once

#include <cstdint>

// Random numbers that are the same with every compiler and library: the splitmix64 generator, and
// bell-shaped values as sums of uniform ones, which need no library function.
struct SORTEIO {
  std::uint64_t estado;

  // A well mixed function of `x`, for values that depend on a place and not on the order of calls.
  static std::uint64_t mistura(std::uint64_t x) {
    x = (x ^ (x >> 30U)) * 0xBF58476D1CE4E5B9ULL;
    x = (x ^ (x >> 27U)) * 0x94D049BB133111EBULL;
    return x ^ (x >> 31U);
  }

  // 64 bits as a number in [0, 1).
  static double fracao(std::uint64_t bits) { return static_cast<double>(bits >> 11U) * 0x1p-53; }

  std::uint64_t bits() { return mistura(estado += 0x9E3779B97F4A7C15ULL); }

  double uniforme(double de, double ate) { return de + (ate - de) * fracao(bits()); }

  // Mean 0, deviation 1, within 6.
  double normal() {
    double soma = -6;
    for (int i = 0; i < 12; ++i) soma += fracao(bits());
    return soma;
  }

  // As `normal` does but within 3.5, from a single draw of four 16-bit numbers: for millions of
  // pixels.
  double normalRapida() {
    const std::uint64_t b = bits();
    const std::uint64_t soma =
        (b & 0xFFFFU) + ((b >> 16U) & 0xFFFFU) + ((b >> 32U) & 0xFFFFU) + (b >> 48U);
    return (static_cast<double>(soma) - 2 * 65535.0) / 37837.23;
  }
};
