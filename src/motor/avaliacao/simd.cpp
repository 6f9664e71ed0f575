// Vector form of simples.cpp, compiled once for every instruction set. What is added, multiplied
// and rounded is the same, in the same order: results are equal to the last bit.
#include "motor/avaliacao/avaliacao.h"

// Vectors of unknown length can't be fields of a record; the other two gain nothing.
#define HWY_DISABLED_TARGETS (HWY_SVE | HWY_SVE2 | HWY_SVE_256 | HWY_RVV | HWY_AVX3_DL | HWY_SSSE3)

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "motor/avaliacao/simd.cpp"
#include <hwy/foreach_target.h>  // must come before highway.h
#include <hwy/highway.h>

#include <algorithm>

// Not for vectors of one element: plain C++ does better there (linhas.cpp).
#if HWY_TARGET != HWY_SCALAR
#include "motor/avaliacao/comum-inl.h"
#include "motor/avaliacao/curta-inl.h"
#include "motor/avaliacao/descida-inl.h"
#include "motor/avaliacao/tijolos-inl.h"

HWY_BEFORE_NAMESPACE();
namespace motor::HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

// Terms over its whole that a small kernel has at most. With those of its core, about as many, they
// read four vectors each, 20 kB at most: well within the nearest cache.
constexpr std::size_t termosDeKernelPequeno = 40;

template <class D, class T>
HWY_INLINE QUATRO<hn::Vec<D>> soma(D d, const T* HWY_RESTRICT pixel, const SOMA& x) {
  const std::size_t n = hn::Lanes(d);
  auto a = hn::Zero(d);
  auto b = a;
  auto c = a;
  auto e = a;
  for (const std::int32_t desloc : x.mais) {
    const T* p = pixel + desloc;
    a = hn::Add(a, hn::LoadU(d, p));
    b = hn::Add(b, hn::LoadU(d, p + n));
    c = hn::Add(c, hn::LoadU(d, p + 2 * n));
    e = hn::Add(e, hn::LoadU(d, p + 3 * n));
  }
  for (const std::int32_t desloc : x.menos) {
    const T* p = pixel + desloc;
    a = hn::Sub(a, hn::LoadU(d, p));
    b = hn::Sub(b, hn::LoadU(d, p + n));
    c = hn::Sub(c, hn::LoadU(d, p + 2 * n));
    e = hn::Sub(e, hn::LoadU(d, p + 3 * n));
  }
  return {a, b, c, e};
}

// The four vectors of pixels at `pixel`, through all kernels.
template <class D, class DF, class DI, class DR, class T>
HWY_INLINE void avaliaQuatro(D d, DF df, DI di, DR dr, const T* HWY_RESTRICT pixel,
                             const std::vector<KERNELPRONTO>& kernels, float* HWY_RESTRICT correl,
                             std::int32_t* HWY_RESTRICT indice) {
  const std::size_t n = hn::Lanes(d);
  const auto menosUm = hn::Set(df, -1.0F);
  const auto nenhum = hn::Set(di, -1);
  QUATRO<hn::Vec<DF>> melhor{menosUm, menosUm, menosUm, menosUm};
  QUATRO<hn::Vec<DI>> qual{nenhum, nenhum, nenhum, nenhum};
  for (const KERNELPRONTO& k : kernels) {
    const SOMAS& s = k.partes.front();
    const auto t = soma(d, pixel, s.tudo);
    const auto c = soma(d, pixel, s.nucleo);
    const FATORES<DR> f(dr, k);
    const auto este = hn::Set(di, k.indice);
    const T tipo{};
    guarda(df, di, correlacao(df, t.a, c.a, d, f, tipo), este, melhor.a, qual.a);
    guarda(df, di, correlacao(df, t.b, c.b, d, f, tipo), este, melhor.b, qual.b);
    guarda(df, di, correlacao(df, t.c, c.c, d, f, tipo), este, melhor.c, qual.c);
    guarda(df, di, correlacao(df, t.d, c.d, d, f, tipo), este, melhor.d, qual.d);
  }
  hn::StoreU(melhor.a, df, correl);
  hn::StoreU(melhor.b, df, correl + n);
  hn::StoreU(melhor.c, df, correl + 2 * n);
  hn::StoreU(melhor.d, df, correl + 3 * n);
  hn::StoreU(qual.a, di, indice);
  hn::StoreU(qual.b, di, indice + n);
  hn::StoreU(qual.c, di, indice + 2 * n);
  hn::StoreU(qual.d, di, indice + 3 * n);
}

template <class T, class REAL>
void avaliaEmRegistros(const BLOCO<T>& b, const std::vector<KERNELPRONTO>& kernels) {
  const hn::ScalableTag<T> d;
  const hn::Rebind<float, decltype(d)> df;
  const hn::Rebind<std::int32_t, decltype(d)> di;
  const hn::Rebind<REAL, decltype(d)> dr;
  static_assert(4 * hn::MaxLanes(hn::ScalableTag<T>()) <= folgaDeLeitura);
  paraCadaColuna(b, static_cast<int>(4 * hn::Lanes(d)),
                 [&](const T* pixel, float* correl, std::int32_t* indice)
                     HWY_ATTR { avaliaQuatro(d, df, di, dr, pixel, kernels, correl, indice); });
}

// Small kernels have few terms, which stay in the nearest cache from row to row while everything
// else stays in registers. Those of large kernels lie too far apart for that.
template <class T, class REAL>
void avaliaBloco(const BLOCO<T>& b, const std::vector<KERNELPRONTO>& kernels) {
  const bool muitos = std::any_of(kernels.begin(), kernels.end(), [](const KERNELPRONTO& k) {
    const SOMAS& s = k.partes.front();
    return s.tudo.mais.size() + s.tudo.menos.size() > termosDeKernelPequeno;
  });
  if (muitos) {
    avaliaEmTijolos<T, REAL>(b, kernels);
  } else {
    avaliaEmRegistros<T, REAL>(b, kernels);
  }
}

void avaliaInteiros(const BLOCO<std::int32_t>& b, const std::vector<KERNELPRONTO>& kernels) {
  avaliaBloco<std::int32_t, float>(b, kernels);
}

void avaliaReais(const BLOCO<double>& b, const std::vector<KERNELPRONTO>& kernels) {
  avaliaBloco<double, double>(b, kernels);
}

}  // namespace motor::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();
#endif

#if HWY_ONCE
namespace motor {
namespace {

#if HWY_ARCH_X86
bool temSse4() {
  return __builtin_cpu_supports("sse4.2") && __builtin_cpu_supports("pclmul") &&
         __builtin_cpu_supports("aes");
}

bool temAvx2() {
  return temSse4() && __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi") &&
         __builtin_cpu_supports("bmi2") && __builtin_cpu_supports("fma");
}

bool temAvx512() {
  return temAvx2() && __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512vl") &&
         __builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512bw");
}
#endif

}  // namespace

// The vector library could choose by itself, but loading it takes milliseconds at every start: it
// times its clock first.
std::vector<AVALIADOR> avaliadores() {
  std::vector<AVALIADOR> lista;
#if HWY_TARGETS & HWY_AVX3
  if (temAvx512())
    lista.push_back({"AVX-512", N_AVX3::avaliaCurtos, N_AVX3::avaliaDescendo,
                     N_AVX3::avaliaInteiros, N_AVX3::avaliaReais});
#endif
#if HWY_TARGETS & HWY_AVX2
  if (temAvx2())
    lista.push_back({"AVX2", N_AVX2::avaliaCurtos, N_AVX2::avaliaDescendo, N_AVX2::avaliaInteiros,
                     N_AVX2::avaliaReais});
#endif
#if HWY_TARGETS & HWY_SSE4
  if (temSse4())
    lista.push_back({"SSE4", N_SSE4::avaliaCurtos, N_SSE4::avaliaDescendo, N_SSE4::avaliaInteiros,
                     N_SSE4::avaliaReais});
#endif
#if HWY_STATIC_TARGET != HWY_SCALAR
  lista.push_back({hwy::TargetName(HWY_STATIC_TARGET), HWY_STATIC_DISPATCH(avaliaCurtos),
                   HWY_STATIC_DISPATCH(avaliaDescendo), HWY_STATIC_DISPATCH(avaliaInteiros),
                   HWY_STATIC_DISPATCH(avaliaReais)});
#endif
  lista.push_back({"C++", avaliaLinhas, nullptr, avaliaLinhas, avaliaLinhas});
  return lista;
}

}  // namespace motor
#endif
