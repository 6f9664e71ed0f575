// What the ways of evaluating a block (avaliacao.h) in vectors have in common.
//
// Included once for every instruction set, hence the guard that is set and unset in turn.
#if defined(AVALIACAO_COMUM_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef AVALIACAO_COMUM_INL_H
#undef AVALIACAO_COMUM_INL_H
#else
#define AVALIACAO_COMUM_INL_H
#endif

#include <hwy/highway.h>

#include <algorithm>
#include <array>

#include "motor/avaliacao/avaliacao.h"

HWY_BEFORE_NAMESPACE();
namespace motor::HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

// Four vectors of pixels side by side: enough independent additions to keep the processor busy,
// few enough to stay in registers with the best values so far.
template <class V>
struct QUATRO {
  V a, b, c, d;
};

// What a kernel multiplies its sums by, in the type that they are brought to: float for integer
// planes, double for double ones.
template <class DR>
struct FATORES {
  hn::Vec<DR> nAnel, nNucleo, escala;

  FATORES(DR d, const KERNELPRONTO& k)
      : nAnel(hn::Set(d, static_cast<hn::TFromD<DR>>(k.nAnel))),
        nNucleo(hn::Set(d, static_cast<hn::TFromD<DR>>(k.nNucleo))),
        escala(hn::Set(d, static_cast<hn::TFromD<DR>>(k.escala))) {}
};

template <class V, class DR>
HWY_INLINE hn::Vec<DR> combina(V anel, V centro, const FATORES<DR>& f) {
  return hn::Mul(hn::Sub(hn::Mul(anel, f.nNucleo), hn::Mul(centro, f.nAnel)), f.escala);
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

// Calls `avalia(pixel, correlations, indices)` for all pixels of the block, `largura` side by side
// at a time: column by column, and in each row after row, as the terms of the next row are still in
// the cache. The last, partial column goes through a buffer.
template <class T, class ACAO>
HWY_INLINE void paraCadaColuna(const BLOCO<T>& b, int largura, ACAO avalia) {
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
        avalia(pixel, destino, destinoIndice);
      } else {
        avalia(pixel, correl.data(), indice.data());
        std::copy_n(correl.data(), cabem, destino);
        std::copy_n(indice.data(), cabem, destinoIndice);
      }
    }
  }
}

}  // namespace motor::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
