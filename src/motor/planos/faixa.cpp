#include "motor/planos/faixa.h"

#include <algorithm>
#include <cstdlib>
#include <span>
#include <type_traits>

#include "motor/avaliacao/avaliacao.h"

namespace motor {
namespace {

// Nearest whole multiple of 1/unidade, less the discount.
inline std::int32_t inteiro(float v, float unidade, std::int32_t desconto) {
  const float x = v * unidade;
  return static_cast<std::int32_t>(x + (x < 0 ? -0.5F : 0.5F)) - desconto;
}

inline double inteiro(float v, double unidade, double /*desconto*/) {
  constexpr double meio = 6755399441055744.0;  // 1.5 * 2^52: adding it rounds to whole numbers
  return (static_cast<double>(v) * unidade + meio) - meio;
}

// A row of the level from column `x0` on, its ends repeated; `em(c)` is its pixel c.
template <class T, class PIXEL>
void leLinha(int x0, int cols, PIXEL em, std::span<T> saida) {
  const int n = static_cast<int>(saida.size());
  const int de = std::clamp(-x0, 0, n);
  const int ate = std::clamp(cols - x0, de, n);
  T* q = saida.data();
  std::fill(q, q + de, em(0));
  for (int j = de; j < ate; ++j) q[j] = em(x0 + j);
  std::fill(q + ate, q + n, em(cols - 1));
}

template <class T>
void leLinha(const NIVEL& nivel, int y, int x0, std::span<T> saida) {
  using UNIDADE = std::conditional_t<std::is_integral_v<T>, float, double>;
  [[maybe_unused]] const auto unidade = static_cast<UNIDADE>(nivel.unidade);
  const auto desconto = static_cast<T>(nivel.desconto);
  const int l = std::clamp(y, 0, nivel.imagem.rows - 1);
  if constexpr (std::is_same_v<T, std::int16_t>) {
    const unsigned char* linha = nivel.bytes[l];
    leLinha(
        x0, nivel.imagem.cols, [=](int c) { return static_cast<T>(linha[c] - desconto); }, saida);
  } else {
    const float* linha = nivel.imagem[l];
    leLinha(
        x0, nivel.imagem.cols, [=](int c) { return inteiro(linha[c], unidade, desconto); }, saida);
  }
}

// Sums that wrap around are made in unsigned arithmetic.
template <class T>
T soma(T a, T b) {
  if constexpr (std::is_integral_v<T>) {
    return static_cast<T>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
  } else {
    return a + b;
  }
}

template <class T>
T diferenca(T a, T b) {
  if constexpr (std::is_integral_v<T>) {
    return static_cast<T>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
  } else {
    return a - b;
  }
}

template <class T>
void somaLinha(const std::vector<T>& linha, T* x) {
  T total{};
  for (std::size_t j = 0; j < linha.size(); ++j) {
    total = soma(total, linha[j]);
    x[j] = total;
  }
}

// How far aside the planes' sums reach.
int ladoDosPlanos(const std::vector<PLANO>& planos) {
  int maior = 0;
  for (const PLANO& p : planos) {
    maior = std::max(maior, std::abs(p.dc));
    for (const TERMO& t : p.soma) maior = std::max(maior, std::abs(t.dc));
  }
  return maior;
}

// saida = a + b or a - b; `saida` may be `a`.
template <class T>
void junta(const T* a, const T* b, bool mais, std::size_t n, T* saida) {
  if (mais) {
    for (std::size_t j = 0; j < n; ++j) saida[j] = soma(a[j], b[j]);
  } else {
    for (std::size_t j = 0; j < n; ++j) saida[j] = diferenca(a[j], b[j]);
  }
}

}  // namespace

template <class T>
FAIXA<T>::FAIXA(int margemPedida, int linhasPedidas, int colunasPedidas,
                const std::vector<PLANO>& planosPedidos)
    : margem(margemPedida),
      linhas(linhasPedidas),
      colunas(colunasPedidas),
      planos(planosPedidos),
      aba(ladoDosPlanos(planos)),
      passo(static_cast<std::size_t>(colunas + 2 * margem + 2 * aba)),
      tamanho(passo * static_cast<std::size_t>(linhas + 2 * margem)),
      elementos(tamanho * (1 + planos.size()) + folgaDeLeitura),
      linhaInteira(passo) {}

template <class T>
double FAIXA<T>::bytes(int margem, int linhas, int colunas, const std::vector<PLANO>& planos) {
  return static_cast<double>(sizeof(T) * (1 + planos.size())) * (linhas + 2.0 * margem) *
         (colunas + 2.0 * margem + 2.0 * ladoDosPlanos(planos));
}

template <class T>
void FAIXA<T>::enche(const NIVEL& nivel, int x0, int y0, int de, int ate) {
  const auto meio =
      std::span(linhaInteira)
          .subspan(static_cast<std::size_t>(aba), passo - 2 * static_cast<std::size_t>(aba));
  if (de == 0) total = T{};
  for (int r = de; r < ate; ++r) {
    leLinha(nivel, y0 - margem + r, x0 - margem, meio);
    T* x = elementos.data() + static_cast<std::size_t>(r) * passo;
    somaLinha(linhaInteira, x);
    total = soma(total, x[passo - 1]);
    for (std::size_t p = 1; p <= planos.size(); ++p) encheLinha(p, r);
  }
}

template <class T>
void FAIXA<T>::encheLinha(std::size_t p, int r) {
  const PLANO& plano = planos[p - 1];
  const auto lado = static_cast<std::size_t>(aba);
  const std::size_t n = passo - 2 * lado;
  // The element `dl` rows below and `dc` columns right of the row's first, in plane q; none above
  // the buffer, where all is 0.
  const auto em = [&](std::size_t q, int dl, int dc) -> T* {
    if (r + dl < 0) return nullptr;
    return elementos.data() + q * tamanho + static_cast<std::size_t>(r + dl) * passo + lado + dc;
  };
  T* saida = em(p, 0, 0);
  const T* antes = em(p, -plano.dl, -plano.dc);
  if (antes == nullptr) {
    std::fill(saida, saida + n, T{});
    antes = saida;
  }
  if (plano.dosPixels) junta(antes, linhaInteira.data() + lado, true, n, saida);
  for (const TERMO& t : plano.soma) {
    const T* x = em(static_cast<std::size_t>(t.plano), t.dl, t.dc);
    if (x == nullptr) continue;
    junta(antes, x, t.sinal > 0, n, saida);
    antes = saida;
  }
  if (antes != saida && !plano.dosPixels) std::copy(antes, antes + n, saida);
  std::fill(saida - lado, saida, T{});
  std::fill(saida + n, saida + n + lado, plano.dosPixels ? T{} : total);
}

template <class T>
void FAIXA<T>::avanca(int feitas) {
  const std::size_t guardadas = 2 * static_cast<std::size_t>(margem) * passo;
  const std::size_t saltadas = static_cast<std::size_t>(feitas) * passo;
  for (std::size_t p = 0; p <= planos.size(); ++p) {
    T* plano = elementos.data() + p * tamanho;
    std::copy(plano + saltadas, plano + saltadas + guardadas, plano);
  }
}

template struct FAIXA<std::int16_t>;
template struct FAIXA<std::int32_t>;
template struct FAIXA<double>;

}  // namespace motor
