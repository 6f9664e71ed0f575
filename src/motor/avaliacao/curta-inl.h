// Evaluation on planes of 16 bits of kernels divided by rows (divisao.h).
//
// Included once for every instruction set, hence the guard that is set and unset in turn.
#if defined(AVALIACAO_CURTA_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef AVALIACAO_CURTA_INL_H
#undef AVALIACAO_CURTA_INL_H
#else
#define AVALIACAO_CURTA_INL_H
#endif

#include "motor/avaliacao/comum-inl.h"

HWY_BEFORE_NAMESPACE();
namespace motor::HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

template <class V>
struct DOIS {
  V a, b;
};

// One term's share of the sum of one vector of pixels.
template <bool MAIS, class D>
HWY_INLINE hn::Vec<D> comTermo(D d, hn::Vec<D> v, const std::int16_t* HWY_RESTRICT p) {
  return MAIS ? hn::Add(v, hn::LoadU(d, p)) : hn::Sub(v, hn::LoadU(d, p));
}

// Two terms at a time: with two vectors only, one at a time would leave the processor busy
// counting.
template <bool MAIS, class D>
HWY_INLINE void juntaTermos(D d, const std::int16_t* HWY_RESTRICT pixel,
                            const std::vector<std::int32_t>& desloc, DOIS<hn::Vec<D>>& x) {
  const std::size_t n = hn::Lanes(d);
  const std::int32_t* i = desloc.data();
  const std::int32_t* const fim = i + desloc.size();
  for (; fim - i >= 2; i += 2) {
    const std::int16_t* p = pixel + i[0];
    const std::int16_t* q = pixel + i[1];
    x.a = comTermo<MAIS>(d, comTermo<MAIS>(d, x.a, p), q);
    x.b = comTermo<MAIS>(d, comTermo<MAIS>(d, x.b, p + n), q + n);
  }
  if (i == fim) return;
  x.a = comTermo<MAIS>(d, x.a, pixel + *i);
  x.b = comTermo<MAIS>(d, x.b, pixel + *i + n);
}

// The sum over one region for two vectors of pixels.
template <class D>
HWY_INLINE DOIS<hn::Vec<D>> somaCurta(D d, const std::int16_t* HWY_RESTRICT pixel,
                                      const SOMA& soma) {
  DOIS<hn::Vec<D>> x{hn::Zero(d), hn::Zero(d)};
  juntaTermos<true>(d, pixel, soma.mais, x);
  juntaTermos<false>(d, pixel, soma.menos, x);
  return x;
}

// The even lanes of two vectors of 16 bits as 32-bit integers, in `a` and `c`, and the odd ones, in
// `b` and `d`.
template <class DI, class V>
HWY_INLINE QUATRO<hn::Vec<DI>> alarga(DI di, DOIS<V> x) {
  const auto par = [&](V v) HWY_ATTR {
    return hn::ShiftRight<16>(hn::ShiftLeft<16>(hn::BitCast(di, v)));
  };
  const auto impar = [&](V v) HWY_ATTR { return hn::ShiftRight<16>(hn::BitCast(di, v)); };
  return {par(x.a), impar(x.a), par(x.b), impar(x.b)};
}

template <class V>
HWY_INLINE void acumula(QUATRO<V>& total, const QUATRO<V>& x) {
  total = {hn::Add(total.a, x.a), hn::Add(total.b, x.b), hn::Add(total.c, x.c),
           hn::Add(total.d, x.d)};
}

// The two vectors of pixels at `pixel`, through all kernels.
template <class DI>
HWY_INLINE void avaliaDois(DI di, const std::int16_t* HWY_RESTRICT pixel,
                           const std::vector<KERNELPRONTO>& kernels, float* HWY_RESTRICT correl,
                           std::int32_t* HWY_RESTRICT indice) {
  const hn::Repartition<std::int16_t, DI> d;
  const hn::Rebind<float, DI> df;
  const std::size_t n = hn::Lanes(d);
  const auto menosUm = hn::Set(df, -1.0F);
  const auto nenhum = hn::Set(di, -1);
  QUATRO<hn::Vec<decltype(df)>> melhor{menosUm, menosUm, menosUm, menosUm};
  QUATRO<hn::Vec<DI>> qual{nenhum, nenhum, nenhum, nenhum};
  for (const KERNELPRONTO& k : kernels) {
    const auto zero = hn::Zero(di);
    QUATRO<hn::Vec<DI>> anel{zero, zero, zero, zero};
    QUATRO<hn::Vec<DI>> nucleo = anel;
    for (const SOMAS& s : k.partes) {
      const auto t = somaCurta(d, pixel, s.tudo);
      const auto c = somaCurta(d, pixel, s.nucleo);
      acumula(anel, alarga(di, DOIS<hn::Vec<decltype(d)>>{hn::Sub(t.a, c.a), hn::Sub(t.b, c.b)}));
      acumula(nucleo, alarga(di, c));
    }
    const FATORES<decltype(df)> f(df, k);
    const auto este = hn::Set(di, k.indice);
    const auto real = [&](hn::Vec<DI> v) HWY_ATTR { return hn::ConvertTo(df, v); };
    guarda(df, di, combina(real(anel.a), real(nucleo.a), f), este, melhor.a, qual.a);
    guarda(df, di, combina(real(anel.b), real(nucleo.b), f), este, melhor.b, qual.b);
    guarda(df, di, combina(real(anel.c), real(nucleo.c), f), este, melhor.c, qual.c);
    guarda(df, di, combina(real(anel.d), real(nucleo.d), f), este, melhor.d, qual.d);
  }
  hn::StoreInterleaved2(melhor.a, melhor.b, df, correl);
  hn::StoreInterleaved2(melhor.c, melhor.d, df, correl + n);
  hn::StoreInterleaved2(qual.a, qual.b, di, indice);
  hn::StoreInterleaved2(qual.c, qual.d, di, indice + n);
}

void avaliaCurtos(const BLOCO<std::int16_t>& b, const std::vector<KERNELPRONTO>& kernels) {
  const hn::ScalableTag<std::int32_t> di;
  static_assert(4 * hn::MaxLanes(hn::ScalableTag<std::int32_t>()) <= folgaDeLeitura);
  paraCadaColuna(b, static_cast<int>(4 * hn::Lanes(di)),
                 [&](const std::int16_t* pixel, float* correl, std::int32_t* indice)
                     HWY_ATTR { avaliaDois(di, pixel, kernels, correl, indice); });
}

}  // namespace motor::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
