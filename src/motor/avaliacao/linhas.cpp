#include <algorithm>
#include <array>
#include <span>
#include <type_traits>

#include "motor/avaliacao/avaliacao.h"

namespace motor {
namespace {

// Pixels of a row dealt with at a time: their sums and results, 24 bytes a pixel or 40 of doubles,
// stay in the nearest cache.
constexpr int comprimento = 256;

// Sums wrap around as the planes do; parts are added up in 32 bits.
template <class T>
struct TIPOS {
  using ELEMENTO = std::make_unsigned_t<T>;
  using TOTAL = std::int32_t;
  using REAL = float;
};
template <>
struct TIPOS<double> {
  using ELEMENTO = double;
  using TOTAL = double;
  using REAL = double;
};

template <class X>
using TRECHO = std::array<X, comprimento>;

// Adds to `n` sums the elements at the offsets given, or takes them off, QUANTOS at a time.
template <bool MAIS, std::size_t QUANTOS, class T, class ELEMENTO>
void junta(const T* pixel, int n, std::span<const std::int32_t>& desloc, ELEMENTO* somas) {
  for (; desloc.size() >= QUANTOS; desloc = desloc.subspan(QUANTOS)) {
    std::array<const T*, QUANTOS> p;
    for (std::size_t i = 0; i < QUANTOS; ++i) p[i] = pixel + desloc[i];
    for (int j = 0; j < n; ++j) {
      ELEMENTO x = somas[j];
      for (std::size_t i = 0; i < QUANTOS; ++i) {
        const auto y = static_cast<ELEMENTO>(p[i][j]);
        x = static_cast<ELEMENTO>(MAIS ? x + y : x - y);
      }
      somas[j] = x;
    }
  }
}

template <class T, class ELEMENTO>
void soma(const T* pixel, int n, const SOMA& soma, ELEMENTO* somas) {
  std::span<const std::int32_t> mais = soma.mais;
  std::span<const std::int32_t> menos = soma.menos;
  std::fill_n(somas, n, ELEMENTO{});
  junta<true, 4>(pixel, n, mais, somas);
  junta<true, 1>(pixel, n, mais, somas);
  junta<false, 4>(pixel, n, menos, somas);
  junta<false, 1>(pixel, n, menos, somas);
}

// The best of `n` pixels so far, against kernel k.
template <class T>
void compara(const T* pixel, int n, const KERNELPRONTO& k, TRECHO<float>& melhor,
             TRECHO<std::int32_t>& qual) {
  using ELEMENTO = typename TIPOS<T>::ELEMENTO;
  using REAL = typename TIPOS<T>::REAL;
  TRECHO<ELEMENTO> tudo{};
  TRECHO<ELEMENTO> nucleo{};
  TRECHO<typename TIPOS<T>::TOTAL> anel{};
  TRECHO<typename TIPOS<T>::TOTAL> centro{};
  for (const SOMAS& s : k.partes) {
    soma(pixel, n, s.tudo, tudo.data());
    soma(pixel, n, s.nucleo, nucleo.data());
    for (std::size_t j = 0; j < comprimento; ++j) {
      anel[j] += static_cast<T>(tudo[j] - nucleo[j]);
      centro[j] += static_cast<T>(nucleo[j]);
    }
  }
  const auto nAnel = static_cast<REAL>(k.nAnel);
  const auto nNucleo = static_cast<REAL>(k.nNucleo);
  const auto escala = static_cast<REAL>(k.escala);
  for (std::size_t j = 0; j < comprimento; ++j) {
    const auto x = static_cast<float>(
        (static_cast<REAL>(anel[j]) * nNucleo - static_cast<REAL>(centro[j]) * nAnel) * escala);
    const bool maior = x > melhor[j];
    melhor[j] = maior ? x : melhor[j];
    qual[j] = maior ? k.indice : qual[j];
  }
}

template <class T>
void avalia(const BLOCO<T>& b, const std::vector<KERNELPRONTO>& kernels) {
  TRECHO<float> melhor;
  TRECHO<std::int32_t> qual;
  for (int l = 0; l < b.linhas; ++l) {
    const auto linha = static_cast<std::size_t>(l);
    for (int c = 0; c < b.colunas; c += comprimento) {
      const int n = std::min(comprimento, b.colunas - c);
      melhor.fill(-1.0F);
      qual.fill(-1);
      for (const KERNELPRONTO& k : kernels) {
        compara(b.pixel + linha * b.passoPlano + c, n, k, melhor, qual);
      }
      std::copy_n(melhor.data(), n, b.correl + linha * b.passoCorrel + c);
      std::copy_n(qual.data(), n, b.indice + linha * b.passoIndice + c);
    }
  }
}

}  // namespace

void avaliaLinhas(const BLOCO<std::int16_t>& bloco, const std::vector<KERNELPRONTO>& kernels) {
  avalia(bloco, kernels);
}

void avaliaLinhas(const BLOCO<std::int32_t>& bloco, const std::vector<KERNELPRONTO>& kernels) {
  avalia(bloco, kernels);
}

void avaliaLinhas(const BLOCO<double>& bloco, const std::vector<KERNELPRONTO>& kernels) {
  avalia(bloco, kernels);
}

}  // namespace motor
