#include "detect/faixa.h"

#include <algorithm>
#include <type_traits>

#include "detect/avaliacao.h"

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

// A row of the level from column `x0` on, its ends repeated.
template <class T>
void leLinha(const NIVEL& nivel, int y, int x0, std::vector<T>& saida) {
  using UNIDADE = std::conditional_t<std::is_integral_v<T>, float, double>;
  const auto unidade = static_cast<UNIDADE>(nivel.unidade);
  const auto desconto = static_cast<T>(nivel.desconto);
  const int cols = nivel.imagem.cols;
  const float* linha = nivel.imagem[std::clamp(y, 0, nivel.imagem.rows - 1)];
  const int n = static_cast<int>(saida.size());
  const int de = std::clamp(-x0, 0, n);
  const int ate = std::clamp(cols - x0, de, n);
  T* q = saida.data();
  std::fill(q, q + de, inteiro(linha[0], unidade, desconto));
  for (int j = de; j < ate; ++j) q[j] = inteiro(linha[x0 + j], unidade, desconto);
  std::fill(q + ate, q + n, inteiro(linha[cols - 1], unidade, desconto));
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
void somaLinha(const std::vector<T>& linha, T* x) {
  T total{};
  for (std::size_t j = 0; j < linha.size(); ++j) {
    total = soma(total, linha[j]);
    x[j] = total;
  }
}

// A row of a plane along a direction: the row of X plus the plane's own row `dl` above, read `dc`
// columns to the left. Where that column is missing a sum starts.
template <class T>
void acumula(const T* x, const T* acima, int dc, int n, T* saida) {
  const int de = std::clamp(dc, 0, n);
  const int ate = std::clamp(n + dc, de, n);
  std::copy(x, x + de, saida);
  for (int j = de; j < ate; ++j) saida[j] = soma(x[j], acima[j - dc]);
  std::copy(x + ate, x + n, saida + ate);
}

}  // namespace

template <class T>
FAIXA<T>::FAIXA(int margemPedida, int linhasPedidas, int colunasPedidas,
                const std::vector<DIRECAO>& direcoesPedidas)
    : margem(margemPedida),
      linhas(linhasPedidas),
      colunas(colunasPedidas),
      direcoes(direcoesPedidas),
      passo(static_cast<std::size_t>(colunas + 2 * margem)),
      tamanho(passo * static_cast<std::size_t>(linhas + 2 * margem)),
      elementos(tamanho * (1 + direcoes.size()) + folgaDeLeitura),
      linhaInteira(passo) {}

template <class T>
double FAIXA<T>::bytes(int margem, int linhas, int colunas, std::size_t planos) {
  return static_cast<double>(sizeof(T) * planos) * (linhas + 2.0 * margem) *
         (colunas + 2.0 * margem);
}

template <class T>
void FAIXA<T>::enche(const NIVEL& nivel, int x0, int y0, int de, int ate) {
  const int n = static_cast<int>(passo);
  for (int r = de; r < ate; ++r) {
    leLinha(nivel, y0 - margem + r, x0 - margem, linhaInteira);
    T* x = elementos.data() + static_cast<std::size_t>(r) * passo;
    somaLinha(linhaInteira, x);
    T* saida = x;
    for (const DIRECAO d : direcoes) {
      saida += tamanho;
      if (r < d.dl) {
        std::copy(x, x + n, saida);
      } else {
        acumula(x, saida - static_cast<std::size_t>(d.dl) * passo, d.dc, n, saida);
      }
    }
  }
}

template <class T>
void FAIXA<T>::avanca() {
  const std::size_t guardadas = 2 * static_cast<std::size_t>(margem) * passo;
  const std::size_t saltadas = static_cast<std::size_t>(linhas) * passo;
  for (std::size_t p = 0; p <= direcoes.size(); ++p) {
    T* plano = elementos.data() + p * tamanho;
    std::copy(plano + saltadas, plano + saltadas + guardadas, plano);
  }
}

template struct FAIXA<std::int32_t>;
template struct FAIXA<double>;
