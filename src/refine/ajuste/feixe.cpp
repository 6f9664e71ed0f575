#include "refine/ajuste/feixe.h"

#include <cstdint>
#include <cstdlib>

// As for the search: vectors of unknown length and sets that gain nothing are left out.
#define HWY_DISABLED_TARGETS (HWY_SVE | HWY_SVE2 | HWY_SVE_256 | HWY_RVV | HWY_AVX3_DL | HWY_SSSE3)

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "refine/ajuste/feixe.cpp"
#include <hwy/foreach_target.h>  // must come before highway.h
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace refine::HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

using DF = hn::CappedTag<float, multiploDoFeixe>;
using DI = hn::RebindToSigned<DF>;
using VF = hn::Vec<DF>;

// Two pixels side by side.
struct PAR {
  VF antes, depois;
};

// Those at `onde` elements from `p` and after them. Where there are instructions that read from
// many places at once, both are read as one number: what takes the time is the number of reads.
HWY_INLINE PAR lePares(DF d, const float* p, hn::Vec<DI> onde) {
#if HWY_TARGET == HWY_AVX2 || HWY_TARGET == HWY_AVX3
  const hn::Repartition<std::int64_t, DF> d64;
  const hn::Half<DI> metade;
  // cppcheck-suppress invalidPointerCast ; the bits are taken apart again below
  const auto* q = reinterpret_cast<const std::int64_t*>(p);
  const auto baixos = hn::ShiftLeft<2>(hn::PromoteTo(d64, hn::LowerHalf(metade, onde)));
  const auto altos = hn::ShiftLeft<2>(hn::PromoteTo(d64, hn::UpperHalf(metade, onde)));
  const VF a = hn::BitCast(d, hn::GatherOffset(d64, q, baixos));
  const VF b = hn::BitCast(d, hn::GatherOffset(d64, q, altos));
  return {hn::ConcatEven(d, b, a), hn::ConcatOdd(d, b, a)};
#else
  return {hn::GatherIndex(d, p, onde), hn::GatherIndex(d, p + 1, onde)};
#endif
}

HWY_INLINE void leLinhas(DF d, const PIXELS& pixels, const FEIXE& f, std::size_t i, int pontos,
                         float* HWY_RESTRICT greys, std::size_t passo) {
  const DI di;
  const VF l0 = hn::LoadU(d, f.l + i);
  const VF c0 = hn::LoadU(d, f.c + i);
  const VF dl = hn::LoadU(d, f.dl + i);
  const VF dc = hn::LoadU(d, f.dc + i);
  const auto primeira = hn::Set(di, pixels.linha);
  const auto largura = hn::Set(di, pixels.passo);
  const float* p = pixels.origem;
  const float* q = p + pixels.passo;
  for (int k = 0; k < pontos; ++k) {
    const VF t = hn::Set(d, static_cast<float>(k));
    const VF l = hn::Add(l0, hn::Mul(t, dl));
    const VF c = hn::Add(c0, hn::Mul(t, dc));
    const auto li = hn::ConvertTo(di, l);
    const auto ci = hn::ConvertTo(di, c);
    const VF y = hn::Sub(l, hn::ConvertTo(d, li));
    const VF x = hn::Sub(c, hn::ConvertTo(d, ci));
    const auto onde = hn::Add(hn::Mul(hn::Sub(li, primeira), largura), ci);
    const PAR a = lePares(d, p, onde);
    const PAR b = lePares(d, q, onde);
    const VF cima = hn::Add(a.antes, hn::Mul(x, hn::Sub(a.depois, a.antes)));
    const VF baixo = hn::Add(b.antes, hn::Mul(x, hn::Sub(b.depois, b.antes)));
    hn::StoreU(hn::Add(cima, hn::Mul(y, hn::Sub(baixo, cima))), d,
               greys + static_cast<std::size_t>(k) * passo + i);
  }
}

void leFeixe(const PIXELS& pixels, const FEIXE& feixe, int pontos, float* greys,
             std::size_t passo) {
  const DF d;
  for (std::size_t i = 0; i < feixe.n; i += hn::Lanes(d)) {
    leLinhas(d, pixels, feixe, i, pontos, greys, passo);
  }
}

// The slopes of a vector of samples.
struct RAMPAS {
  const float* greys;  // of the middle
  std::ptrdiff_t passo;
  int vao;
  int nitidez;

  HWY_INLINE VF em(DF d, int k) const {
    return hn::Sub(hn::LoadU(d, greys + (k + vao) * passo),
                   hn::LoadU(d, greys + (k - vao) * passo));
  }
  // How much that of step k counts.
  HWY_INLINE VF valor(DF d, int k, VF rampa) const {
    if (nitidez == 0) return rampa;
    const VF aosLados = hn::Add(em(d, k - nitidez), em(d, k + nitidez));
    return hn::Sub(rampa, hn::Mul(hn::Set(d, 0.5F), aosLados));
  }
};

// The best step so far, and the slopes of it and of the steps before and after it.
struct MELHOR {
  VF valor, onde, antes, rampa, depois;
};

HWY_INLINE MELHOR procura(DF d, const RAMPAS& r, const BUSCA& b) {
  const VF zero = hn::Zero(d);
  MELHOR m{hn::Set(d, -9.0F), zero, zero, zero, zero};
  auto pronto = hn::Ne(zero, zero);
  const VF primeira = hn::Set(d, b.primeira);
  VF este = r.em(d, -b.n);
  VF antes = este;
  for (int k = -b.n; k <= b.n; ++k) {
    const VF depois = k < b.n ? r.em(d, k + 1) : este;
    const VF valor = hn::Mul(r.valor(d, k, este), hn::Set(d, b.peso[std::abs(k)]));
    auto toma = hn::Gt(valor, m.valor);
    if (b.primeira > 0) {
      toma = hn::AndNot(pronto, toma);
      if (k > -b.n && k < b.n) {
        const auto pico = hn::And(hn::Ge(este, antes), hn::Ge(este, depois));
        const auto basta = hn::AndNot(pronto, hn::And(pico, hn::Ge(este, primeira)));
        toma = hn::Or(toma, basta);
        pronto = hn::Or(pronto, basta);
      }
    }
    m.valor = hn::IfThenElse(toma, valor, m.valor);
    m.onde = hn::IfThenElse(toma, hn::Set(d, static_cast<float>(k)), m.onde);
    m.antes = hn::IfThenElse(toma, antes, m.antes);
    m.rampa = hn::IfThenElse(toma, este, m.rampa);
    m.depois = hn::IfThenElse(toma, depois, m.depois);
    antes = este;
    este = depois;
  }
  return m;
}

void achaPicos(const float* greys, std::size_t passo, std::size_t n, const BUSCA& b,
               const PICOS& picos) {
  const DF d;
  const auto salto = static_cast<std::ptrdiff_t>(passo);
  const VF zero = hn::Zero(d);
  const VF fim = hn::Set(d, static_cast<float>(b.n));
  for (std::size_t i = 0; i < n; i += hn::Lanes(d)) {
    const RAMPAS r{greys + (b.n + b.nitidez + b.vao) * salto + i, salto, b.vao, b.nitidez};
    const MELHOR m = procura(d, r, b);
    const VF dobra = hn::Add(hn::Sub(m.antes, hn::Add(m.rampa, m.rampa)), m.depois);
    const auto dentro = hn::Lt(hn::Abs(m.onde), fim);
    const auto curva = hn::And(hn::And(dentro, hn::Lt(dobra, zero)), hn::Gt(m.rampa, zero));
    const VF desvio = hn::Div(hn::Sub(m.antes, m.depois), hn::Add(dobra, dobra));
    const VF meio = hn::Set(d, 0.5F);
    const VF contido = hn::Min(hn::Max(desvio, hn::Neg(meio)), meio);
    hn::StoreU(hn::Add(m.onde, hn::IfThenElseZero(curva, contido)), d, picos.onde + i);
    hn::StoreU(m.rampa, d, picos.rampa + i);
    hn::StoreU(hn::IfThenElse(curva, hn::Div(hn::Neg(m.rampa), dobra), hn::Set(d, 1.0F)), d,
               picos.largura2 + i);
  }
}

}  // namespace refine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace refine {
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

// The vector library could choose by itself, but loading it takes milliseconds at every start.
std::vector<LEITOR> leitores() {
  std::vector<LEITOR> lista;
#if HWY_TARGETS & HWY_AVX3
  if (temAvx512()) lista.push_back({"AVX-512", N_AVX3::leFeixe, N_AVX3::achaPicos});
#endif
#if HWY_TARGETS & HWY_AVX2
  if (temAvx2()) lista.push_back({"AVX2", N_AVX2::leFeixe, N_AVX2::achaPicos});
#endif
#if HWY_TARGETS & HWY_SSE4
  if (temSse4()) lista.push_back({"SSE4", N_SSE4::leFeixe, N_SSE4::achaPicos});
#endif
  lista.push_back({hwy::TargetName(HWY_STATIC_TARGET), HWY_STATIC_DISPATCH(leFeixe),
                   HWY_STATIC_DISPATCH(achaPicos)});
  return lista;
}

const LEITOR& melhorLeitor() {
  static const LEITOR melhor = leitores().front();
  return melhor;
}

}  // namespace refine
#endif
