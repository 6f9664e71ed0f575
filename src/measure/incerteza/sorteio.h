#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace measure {

// Random numbers that are the same on every machine: xoshiro128** 1.1 of Blackman and Vigna (2018),
// "Scrambled linear pseudorandom number generators", filled from a seed by Weyl steps and the
// mixing function of MurmurHash3.
class SORTEIO {
 public:
  explicit SORTEIO(std::uint32_t semente) {
    for (std::uint32_t& palavra : s_) {
      semente += 0x9E3779B9U;
      palavra = mistura(semente);
    }
  }

  std::uint32_t proximo() {
    const std::uint32_t saida = std::rotl(s_[1] * 5, 7) * 9;
    const std::uint32_t t = s_[1] << 9U;
    s_[2] ^= s_[0];
    s_[3] ^= s_[1];
    s_[1] ^= s_[2];
    s_[0] ^= s_[3];
    s_[2] ^= t;
    s_[3] = std::rotl(s_[3], 11);
    return saida;
  }

 private:
  static std::uint32_t mistura(std::uint32_t x) {
    x = (x ^ (x >> 16U)) * 0x85EBCA6BU;
    x = (x ^ (x >> 13U)) * 0xC2B2AE35U;
    return x ^ (x >> 16U);
  }

  std::array<std::uint32_t, 4> s_{};
};

// 0 to n - 1 from a random number; the rest of it is lost.
inline std::size_t abaixoDe(std::size_t n, std::uint32_t sorteado) {
  return static_cast<std::size_t>((std::uint64_t{sorteado} * n) >> 32U);
}

}  // namespace measure
