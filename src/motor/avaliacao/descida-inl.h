// Evaluation on planes of 16 bits of kernels divided by columns (divisao.h), row after row
// downward.
//
// Included once for every instruction set, hence the guard that is set and unset in turn.
#if defined(AVALIACAO_DESCIDA_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef AVALIACAO_DESCIDA_INL_H
#undef AVALIACAO_DESCIDA_INL_H
#else
#define AVALIACAO_DESCIDA_INL_H
#endif

#include <span>

#include "motor/avaliacao/tijolos-inl.h"

HWY_BEFORE_NAMESPACE();
namespace motor::HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

using INTEIROS = hn::ScalableTag<std::int32_t>;

// The 16-bit sums of a tile over a region, part by part; row 0 is that above the tile.
using RESTOS = std::vector<std::vector<std::int16_t>>;

// The buffers of a tile.
struct TIJOLO {
  int c;  // its first column in the block
  int largura;
  RESTOS tudo;
  RESTOS nucleo;
  std::vector<float> melhor;
  std::vector<std::int32_t> qual;

  TIJOLO(std::size_t linhas, std::size_t partes)
      : tudo(partes, std::vector<std::int16_t>((linhas + 1) * larguraDoTijolo)),
        nucleo(tudo),
        melhor(linhas * larguraDoTijolo),
        qual(melhor.size()) {}
};

inline std::vector<DESCIDA::KERNEL> noAlto(int colunas, const std::vector<KERNELPRONTO>& kernels) {
  const auto n = static_cast<std::size_t>(colunas + folgaDeLeitura);
  std::vector<DESCIDA::KERNEL> v;
  for (const KERNELPRONTO& k : kernels) {
    const DESCIDA::LINHA r{std::vector<std::int32_t>(n),
                           RESTOS(k.partes.size(), std::vector<std::int16_t>(n))};
    v.push_back({r, r});
  }
  return v;
}

// `restos` is the row above the tile, and then the tile's last; at the top, where there is none
// above, the first row stands for it.
inline void somaRestos(const BLOCO<std::int16_t>& b, const TIJOLO& t, const SOMA& soma, bool noTopo,
                       std::int16_t* restos, std::vector<std::int16_t>& tijolo) {
  std::int16_t* primeira = tijolo.data() + larguraDoTijolo;
  somaTijolo(hn::ScalableTag<std::int16_t>(), b, b.pixel + t.c, t.largura, soma, primeira);
  std::copy_n(noTopo ? primeira : restos, t.largura, tijolo.data());
  std::copy_n(tijolo.data() + b.linhas * larguraDoTijolo, t.largura, restos);
}

// The sums over a region for one row of pixels.
inline void somaPedacos(const std::int16_t* pixel, int largura,
                        const std::vector<EXTREMOS>& pedacos, std::int32_t* somas) {
  const INTEIROS di;
  const hn::Rebind<std::int16_t, INTEIROS> d;
  std::fill_n(somas, largura, 0);
  for (const EXTREMOS& t : pedacos) {
    for (int c = 0; c < largura; c += static_cast<int>(hn::Lanes(di))) {
      const auto soma =
          hn::Sub(hn::LoadU(d, pixel + t.ultimo + c), hn::LoadU(d, pixel + t.antes + c));
      hn::StoreU(hn::Add(hn::LoadU(di, somas + c), hn::PromoteTo(di, soma)), di, somas + c);
    }
  }
}

// Brings the sums of some pixels to the row below, that of the tiles' elements from `i` on.
HWY_INLINE hn::Vec<INTEIROS> desce(std::span<const std::vector<std::int16_t>> restos, std::size_t i,
                                   std::int32_t* somas) {
  const INTEIROS di;
  const hn::Rebind<std::int16_t, INTEIROS> d;
  auto soma = hn::LoadU(di, somas);
  for (const std::vector<std::int16_t>& r : restos) {
    const auto muda = hn::Sub(hn::LoadU(d, &r[i]), hn::LoadU(d, &r[i - larguraDoTijolo]));
    soma = hn::Add(soma, hn::PromoteTo(di, muda));
  }
  hn::StoreU(soma, di, somas);
  return soma;
}

// The best of a tile's pixels so far, against kernel k. The sums at `tudo` and `nucleo` are those
// of the row above the tile, and then those of its last.
inline void comparaDescendo(const KERNELPRONTO& k, std::size_t linhas, std::int32_t* tudo,
                            std::int32_t* nucleo, TIJOLO& tijolo) {
  const INTEIROS di;
  const hn::Rebind<float, INTEIROS> df;
  const FATORES<decltype(df)> f(df, k);
  const auto este = hn::Set(di, k.indice);
  const auto doTudo = std::span(tijolo.tudo).first(k.partes.size());
  const auto doNucleo = std::span(tijolo.nucleo).first(k.partes.size());
  for (std::size_t l = 0; l < linhas; ++l) {
    for (int c = 0; c < tijolo.largura; c += static_cast<int>(hn::Lanes(di))) {
      const std::size_t i = l * larguraDoTijolo + static_cast<std::size_t>(c);
      const auto t = desce(doTudo, i + larguraDoTijolo, tudo + c);
      const auto u = desce(doNucleo, i + larguraDoTijolo, nucleo + c);
      auto m = hn::LoadU(df, &tijolo.melhor[i]);
      auto q = hn::LoadU(di, &tijolo.qual[i]);
      guarda(df, di, correlacao(df, t, u, di, f, std::int32_t{}), este, m, q);
      hn::StoreU(m, df, &tijolo.melhor[i]);
      hn::StoreU(q, di, &tijolo.qual[i]);
    }
  }
}

inline void avaliaKernel(const BLOCO<std::int16_t>& b, const KERNELPRONTO& k, bool noTopo,
                         DESCIDA::KERNEL& e, TIJOLO& t) {
  const auto c = static_cast<std::size_t>(t.c);
  for (std::size_t p = 0; p < k.partes.size(); ++p) {
    somaRestos(b, t, k.partes[p].tudo, noTopo, &e.tudo.restos[p][c], t.tudo[p]);
    somaRestos(b, t, k.partes[p].nucleo, noTopo, &e.nucleo.restos[p][c], t.nucleo[p]);
  }
  if (noTopo) {
    somaPedacos(b.pixel + c, t.largura, k.pedacosDoTudo, &e.tudo.somas[c]);
    somaPedacos(b.pixel + c, t.largura, k.pedacosDoNucleo, &e.nucleo.somas[c]);
  }
  comparaDescendo(k, static_cast<std::size_t>(b.linhas), &e.tudo.somas[c], &e.nucleo.somas[c], t);
}

// Tile after tile, kernel after kernel.
inline void avaliaDescendo(const BLOCO<std::int16_t>& b, const std::vector<KERNELPRONTO>& kernels,
                           DESCIDA& descida) {
  const bool noTopo = descida.kernels.empty();
  if (noTopo) descida.kernels = noAlto(b.colunas, kernels);
  std::size_t partes = 0;
  for (const KERNELPRONTO& k : kernels) partes = std::max(partes, k.partes.size());
  TIJOLO t(static_cast<std::size_t>(b.linhas), partes);
  for (t.c = 0; t.c < b.colunas; t.c += larguraDoTijolo) {
    t.largura = std::min(b.colunas - t.c, larguraDoTijolo);
    std::fill(t.melhor.begin(), t.melhor.end(), -1.0F);
    std::fill(t.qual.begin(), t.qual.end(), -1);
    for (std::size_t j = 0; j < kernels.size(); ++j) {
      avaliaKernel(b, kernels[j], noTopo, descida.kernels[j], t);
    }
    entrega(t.melhor, t.qual, t.c, t.largura, b);
  }
}

}  // namespace motor::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
