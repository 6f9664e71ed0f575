// Vector form of avaliacao_simples.cpp, compiled once for every instruction set. The same
// operations in the same order: results are equal to the last bit.
#include "detect/avaliacao.h"

// Vectors of unknown length can't be fields of a record; the other two gain nothing.
#define HWY_DISABLED_TARGETS (HWY_SVE | HWY_SVE2 | HWY_SVE_256 | HWY_RVV | HWY_AVX3_DL | HWY_SSSE3)

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "detect/avaliacao_simd.cpp"
#include <hwy/foreach_target.h>  // must come before highway.h
#include <hwy/highway.h>

#include <algorithm>
#include <array>

HWY_BEFORE_NAMESPACE();
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

constexpr std::size_t termosDeKernelPequeno = 40;  // over its whole
constexpr int larguraDoTijolo = 256;               // columns of a tile; its rows are the block's

// Four vectors of pixels side by side: enough independent additions to keep the processor busy,
// few enough to stay in registers with the best values so far.
template <class V>
struct QUATRO {
  V a, b, c, d;
};

template <class D, class T>
HWY_INLINE QUATRO<hn::Vec<D>> soma(D d, const T* HWY_RESTRICT pixel,
                                   const std::vector<std::int32_t>& mais,
                                   const std::vector<std::int32_t>& menos) {
  const std::size_t n = hn::Lanes(d);
  auto a = hn::Zero(d);
  auto b = a;
  auto c = a;
  auto e = a;
  for (const std::int32_t desloc : mais) {
    const T* p = pixel + desloc;
    a = hn::Add(a, hn::LoadU(d, p));
    b = hn::Add(b, hn::LoadU(d, p + n));
    c = hn::Add(c, hn::LoadU(d, p + 2 * n));
    e = hn::Add(e, hn::LoadU(d, p + 3 * n));
  }
  for (const std::int32_t desloc : menos) {
    const T* p = pixel + desloc;
    a = hn::Sub(a, hn::LoadU(d, p));
    b = hn::Sub(b, hn::LoadU(d, p + n));
    c = hn::Sub(c, hn::LoadU(d, p + 2 * n));
    e = hn::Sub(e, hn::LoadU(d, p + 3 * n));
  }
  return {a, b, c, e};
}

// What a kernel multiplies its sums by, in the type that they are brought to: float for integer
// planes, double for double ones.
template <class DR>
struct FATORES {
  hn::Vec<DR> anel, nucleo, escala;

  FATORES(DR d, const KERNELPRONTO& k)
      : anel(hn::Set(d, static_cast<hn::TFromD<DR>>(k.anel))),
        nucleo(hn::Set(d, static_cast<hn::TFromD<DR>>(k.nucleo))),
        escala(hn::Set(d, static_cast<hn::TFromD<DR>>(k.escala))) {}
};

template <class V, class DR>
HWY_INLINE hn::Vec<DR> combina(V anel, V centro, const FATORES<DR>& f) {
  return hn::Mul(hn::Sub(hn::Mul(anel, f.nucleo), hn::Mul(centro, f.anel)), f.escala);
}

// Float correlations from sums in integer or double lanes; `df` has as many lanes as the planes.
template <class DF, class DI, class FATOR>
HWY_INLINE hn::Vec<DF> correlacao(DF df, hn::Vec<DI> tudo, hn::Vec<DI> centro, DI /*di*/,
                                  const FATOR& f, std::int32_t /*tipo*/) {
  return combina(hn::ConvertTo(df, hn::Sub(tudo, centro)), hn::ConvertTo(df, centro), f);
}

template <class DF, class DD, class FATOR>
HWY_INLINE hn::Vec<DF> correlacao(DF df, hn::Vec<DD> tudo, hn::Vec<DD> centro, DD /*dd*/,
                                  const FATOR& f, double /*tipo*/) {
  return hn::DemoteTo(df, combina(hn::Sub(tudo, centro), centro, f));
}

template <class DF, class DI>
HWY_INLINE void guarda(DF /*df*/, DI di, hn::Vec<DF> x, hn::Vec<DI> k, hn::Vec<DF>& melhor,
                       hn::Vec<DI>& qual) {
  const auto maior = hn::Gt(x, melhor);
  melhor = hn::IfThenElse(maior, x, melhor);
  qual = hn::IfThenElse(hn::RebindMask(di, maior), k, qual);
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
    const auto t = soma(d, pixel, k.maisTudo, k.menosTudo);
    const auto c = soma(d, pixel, k.maisNucleo, k.menosNucleo);
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

// Columns of four vectors, row after row: the terms of the next row are still in the cache. The
// last, partial column goes through a buffer.
template <class T, class REAL>
void avaliaEmRegistros(const BLOCO<T>& b, const std::vector<KERNELPRONTO>& kernels) {
  const hn::ScalableTag<T> d;
  const hn::Rebind<float, decltype(d)> df;
  const hn::Rebind<std::int32_t, decltype(d)> di;
  const hn::Rebind<REAL, decltype(d)> dr;
  static_assert(4 * hn::MaxLanes(hn::ScalableTag<T>()) <= folgaDeLeitura);
  const auto largura = static_cast<int>(4 * hn::Lanes(d));
  std::array<float, folgaDeLeitura> correl;
  std::array<std::int32_t, folgaDeLeitura> indice;
  for (int c = 0; c < b.colunas; c += largura) {
    const int cabem = b.colunas - c;
    for (int l = 0; l < b.linhas; ++l) {
      const auto linha = static_cast<std::size_t>(l);
      const T* pixel = b.pixel + linha * b.passoPlano + c;
      float* destino = b.correl + linha * b.passoCorrel + c;
      std::int32_t* destinoIndice = b.indice + linha * b.passoIndice + c;
      if (cabem >= largura) {
        avaliaQuatro(d, df, di, dr, pixel, kernels, destino, destinoIndice);
      } else {
        avaliaQuatro(d, df, di, dr, pixel, kernels, correl.data(), indice.data());
        std::copy_n(correl.data(), cabem, destino);
        std::copy_n(indice.data(), cabem, destinoIndice);
      }
    }
  }
}

// Adds to the sums of a tile's pixels the elements at MAIS offsets, and takes off those at MENOS.
// Two vectors at a time: a tile's row is a multiple of that, and more may be read than is used.
template <std::size_t MAIS, std::size_t MENOS, class D, class T>
HWY_INLINE void soma(D d, const BLOCO<T>& b, const T* HWY_RESTRICT pixel, int largura,
                     const std::int32_t* mais, const std::int32_t* menos, T* HWY_RESTRICT somas) {
  const int n = static_cast<int>(hn::Lanes(d));
  std::array<const T*, MAIS> p;
  std::array<const T*, MENOS> q;
  for (int l = 0; l < b.linhas; ++l) {
    const T* linha = pixel + static_cast<std::size_t>(l) * b.passoPlano;
    for (std::size_t i = 0; i < MAIS; ++i) p[i] = linha + mais[i];
    for (std::size_t i = 0; i < MENOS; ++i) q[i] = linha + menos[i];
    T* s = somas + l * larguraDoTijolo;
    for (int c = 0; c < largura; c += 2 * n) {
      auto v = hn::LoadU(d, s + c);
      auto w = hn::LoadU(d, s + c + n);
      for (std::size_t i = 0; i < MAIS; ++i) {
        v = hn::Add(v, hn::LoadU(d, p[i] + c));
        w = hn::Add(w, hn::LoadU(d, p[i] + c + n));
      }
      for (std::size_t i = 0; i < MENOS; ++i) {
        v = hn::Sub(v, hn::LoadU(d, q[i] + c));
        w = hn::Sub(w, hn::LoadU(d, q[i] + c + n));
      }
      hn::StoreU(v, d, s + c);
      hn::StoreU(w, d, s + c + n);
    }
  }
}

// The sums of a tile over one region, a few terms at a time: those are neighbours, so that most of
// what they read is in the nearest cache.
template <class D, class T>
HWY_INLINE void somaTijolo(D d, const BLOCO<T>& b, const T* HWY_RESTRICT pixel, int largura,
                           const std::vector<std::int32_t>& mais,
                           const std::vector<std::int32_t>& menos, T* HWY_RESTRICT somas) {
  std::fill_n(somas, b.linhas * larguraDoTijolo, T{});
  const std::int32_t* p = mais.data();
  const std::int32_t* q = menos.data();
  const std::int32_t* const fimP = p + mais.size();
  const std::int32_t* const fimQ = q + menos.size();
  for (; fimP - p >= 4 && fimQ - q >= 4; p += 4, q += 4) {
    soma<4, 4>(d, b, pixel, largura, p, q, somas);
  }
  for (; fimP - p >= 4; p += 4) soma<4, 0>(d, b, pixel, largura, p, q, somas);
  for (; fimQ - q >= 4; q += 4) soma<0, 4>(d, b, pixel, largura, p, q, somas);
  for (; p < fimP; ++p) soma<1, 0>(d, b, pixel, largura, p, q, somas);
  for (; q < fimQ; ++q) soma<0, 1>(d, b, pixel, largura, p, q, somas);
}

// Tile after tile, kernel after kernel.
template <class T, class REAL>
void avaliaEmTijolos(const BLOCO<T>& b, const std::vector<KERNELPRONTO>& kernels) {
  const hn::ScalableTag<T> d;
  const hn::Rebind<float, decltype(d)> df;
  const hn::Rebind<std::int32_t, decltype(d)> di;
  const hn::Rebind<REAL, decltype(d)> dr;
  static_assert(larguraDoTijolo % (2 * hn::MaxLanes(hn::ScalableTag<T>())) == 0);
  const std::size_t n = hn::Lanes(d);
  const std::size_t pixels = static_cast<std::size_t>(b.linhas) * larguraDoTijolo;
  std::vector<T> tudo(pixels);
  std::vector<T> nucleo(pixels);
  std::vector<float> melhor(pixels);
  std::vector<std::int32_t> qual(pixels);
  for (int c = 0; c < b.colunas; c += larguraDoTijolo) {
    const int cabem = std::min(b.colunas - c, larguraDoTijolo);
    const T* pixel = b.pixel + c;
    std::fill(melhor.begin(), melhor.end(), -1.0F);
    std::fill(qual.begin(), qual.end(), -1);
    for (const KERNELPRONTO& k : kernels) {
      somaTijolo(d, b, pixel, cabem, k.maisTudo, k.menosTudo, tudo.data());
      somaTijolo(d, b, pixel, cabem, k.maisNucleo, k.menosNucleo, nucleo.data());
      const FATORES<decltype(dr)> f(dr, k);
      const auto este = hn::Set(di, k.indice);
      for (std::size_t i = 0; i < pixels; i += n) {
        const auto t = hn::LoadU(d, &tudo[i]);
        const auto x = correlacao(df, t, hn::LoadU(d, &nucleo[i]), d, f, T{});
        auto m = hn::LoadU(df, &melhor[i]);
        auto q = hn::LoadU(di, &qual[i]);
        guarda(df, di, x, este, m, q);
        hn::StoreU(m, df, &melhor[i]);
        hn::StoreU(q, di, &qual[i]);
      }
    }
    for (std::size_t l = 0; l < static_cast<std::size_t>(b.linhas); ++l) {
      const auto coluna = static_cast<std::size_t>(c);
      std::copy_n(&melhor[l * larguraDoTijolo], cabem, b.correl + l * b.passoCorrel + coluna);
      std::copy_n(&qual[l * larguraDoTijolo], cabem, b.indice + l * b.passoIndice + coluna);
    }
  }
}

// Small kernels have few terms, which stay in the nearest cache from row to row while everything
// else stays in registers. Those of large kernels lie too far apart for that.
template <class T, class REAL>
void avaliaBloco(const BLOCO<T>& b, const std::vector<KERNELPRONTO>& kernels) {
  const bool muitos = std::any_of(kernels.begin(), kernels.end(), [](const KERNELPRONTO& k) {
    return k.maisTudo.size() + k.menosTudo.size() > termosDeKernelPequeno;
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

}  // namespace HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
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
  if (temAvx512()) lista.push_back({"AVX-512", N_AVX3::avaliaInteiros, N_AVX3::avaliaReais});
#endif
#if HWY_TARGETS & HWY_AVX2
  if (temAvx2()) lista.push_back({"AVX2", N_AVX2::avaliaInteiros, N_AVX2::avaliaReais});
#endif
#if HWY_TARGETS & HWY_SSE4
  if (temSse4()) lista.push_back({"SSE4", N_SSE4::avaliaInteiros, N_SSE4::avaliaReais});
#endif
  lista.push_back({hwy::TargetName(HWY_STATIC_TARGET), HWY_STATIC_DISPATCH(avaliaInteiros),
                   HWY_STATIC_DISPATCH(avaliaReais)});
  return lista;
}
#endif
