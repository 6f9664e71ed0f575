// Evaluation of large kernels: tile after tile, so that what a few terms read stays in the caches.
//
// Included once for every instruction set, hence the guard that is set and unset in turn.
#if defined(AVALIACAO_TIJOLOS_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef AVALIACAO_TIJOLOS_INL_H
#undef AVALIACAO_TIJOLOS_INL_H
#else
#define AVALIACAO_TIJOLOS_INL_H
#endif

#include "motor/avaliacao/comum-inl.h"

HWY_BEFORE_NAMESPACE();
namespace motor::HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

// Columns of a tile, whose rows are those of the block. Its sums and best values, 16 bytes a pixel
// or 24 of doubles, are gone through for each kernel and stay in the second cache; in the nearest
// one stay the rows that a few terms read.
constexpr int larguraDoTijolo = 256;

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

// The sums of a tile over one region, a few terms at a time. Terms that follow each other are
// neighbours, so that most of what a few of them read is in the nearest cache.
template <class D, class T>
HWY_INLINE void somaTijolo(D d, const BLOCO<T>& b, const T* HWY_RESTRICT pixel, int largura,
                           const SOMA& x, T* HWY_RESTRICT somas) {
  std::fill_n(somas, b.linhas * larguraDoTijolo, T{});
  const std::int32_t* p = x.mais.data();
  const std::int32_t* q = x.menos.data();
  const std::int32_t* const fimP = p + x.mais.size();
  const std::int32_t* const fimQ = q + x.menos.size();
  for (; fimP - p >= 4 && fimQ - q >= 4; p += 4, q += 4) {
    soma<4, 4>(d, b, pixel, largura, p, q, somas);
  }
  for (; fimP - p >= 4; p += 4) soma<4, 0>(d, b, pixel, largura, p, q, somas);
  for (; fimQ - q >= 4; q += 4) soma<0, 4>(d, b, pixel, largura, p, q, somas);
  for (; p < fimP; ++p) soma<1, 0>(d, b, pixel, largura, p, q, somas);
  for (; q < fimQ; ++q) soma<0, 1>(d, b, pixel, largura, p, q, somas);
}

// Stores the results of the tile whose first column is `c`.
template <class T>
void entrega(const std::vector<float>& melhor, const std::vector<std::int32_t>& qual, int c,
             int largura, const BLOCO<T>& b) {
  const auto coluna = static_cast<std::size_t>(c);
  for (std::size_t l = 0; l < static_cast<std::size_t>(b.linhas); ++l) {
    std::copy_n(&melhor[l * larguraDoTijolo], largura, b.correl + l * b.passoCorrel + coluna);
    std::copy_n(&qual[l * larguraDoTijolo], largura, b.indice + l * b.passoIndice + coluna);
  }
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
      const SOMAS& s = k.partes.front();
      somaTijolo(d, b, pixel, cabem, s.tudo, tudo.data());
      somaTijolo(d, b, pixel, cabem, s.nucleo, nucleo.data());
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
    entrega(melhor, qual, c, cabem, b);
  }
}

}  // namespace motor::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
