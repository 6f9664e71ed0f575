#include <type_traits>

#include "motor/avaliacao/avaliacao.h"

namespace motor {
namespace {

// Sums wrap around as the planes do; parts are added up in 32 bits.
template <class T>
using ACUMULADOR = std::conditional_t<std::is_integral_v<T>, std::uint32_t, T>;
template <class T>
using TOTAL = std::conditional_t<std::is_integral_v<T>, std::int32_t, T>;

template <class T>
ACUMULADOR<T> soma(const T* pixel, const SOMA& x) {
  ACUMULADOR<T> total = 0;
  for (const std::int32_t d : x.mais) total += static_cast<ACUMULADOR<T>>(pixel[d]);
  for (const std::int32_t d : x.menos) total -= static_cast<ACUMULADOR<T>>(pixel[d]);
  return total;
}

// Integer planes go on in float, double planes in double down to the result.
template <class T>
using REAL = std::conditional_t<std::is_integral_v<T>, float, double>;

template <class T>
float correlacao(const T* pixel, const KERNELPRONTO& k) {
  TOTAL<T> anel = 0;
  TOTAL<T> centro = 0;
  for (const SOMAS& s : k.partes) {
    const auto tudo = soma(pixel, s.tudo);
    const auto nucleo = soma(pixel, s.nucleo);
    anel += static_cast<T>(tudo - nucleo);
    centro += static_cast<T>(nucleo);
  }
  return static_cast<float>((static_cast<REAL<T>>(anel) * static_cast<REAL<T>>(k.nNucleo) -
                             static_cast<REAL<T>>(centro) * static_cast<REAL<T>>(k.nAnel)) *
                            static_cast<REAL<T>>(k.escala));
}

template <class T>
void avaliaPixelAPixel(const BLOCO<T>& b, const std::vector<KERNELPRONTO>& kernels) {
  for (int l = 0; l < b.linhas; ++l) {
    const auto linha = static_cast<std::size_t>(l);
    for (int c = 0; c < b.colunas; ++c) {
      float melhor = -1.0F;
      std::int32_t qual = -1;
      for (const KERNELPRONTO& k : kernels) {
        const float x = correlacao(b.pixel + linha * b.passoPlano + c, k);
        if (x > melhor) {
          melhor = x;
          qual = k.indice;
        }
      }
      b.correl[linha * b.passoCorrel + static_cast<std::size_t>(c)] = melhor;
      b.indice[linha * b.passoIndice + static_cast<std::size_t>(c)] = qual;
    }
  }
}

}  // namespace

void avaliaSimples(const BLOCO<std::int16_t>& bloco, const std::vector<KERNELPRONTO>& kernels) {
  avaliaPixelAPixel(bloco, kernels);
}

void avaliaSimples(const BLOCO<std::int32_t>& bloco, const std::vector<KERNELPRONTO>& kernels) {
  avaliaPixelAPixel(bloco, kernels);
}

void avaliaSimples(const BLOCO<double>& bloco, const std::vector<KERNELPRONTO>& kernels) {
  avaliaPixelAPixel(bloco, kernels);
}

}  // namespace motor
