#include "linha/parecidas.h"

#include <algorithm>

namespace linha {
namespace {

constexpr std::size_t maiorPalavra = 64;  // longer ones were never meant as an option

using FILA = std::vector<std::size_t>;

// The distances of the first i letters of `a` to each beginning of `b`, by those of i-1 and i-2.
FILA proxima(const std::string& a, const std::string& b, std::size_t i, const FILA& uma,
             const FILA& duas) {
  FILA f(b.size() + 1);
  f[0] = i;
  for (std::size_t j = 1; j <= b.size(); ++j) {
    const std::size_t troca = uma[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
    f[j] = std::min({uma[j] + 1, f[j - 1] + 1, troca});
    const bool cruza = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
    if (cruza) f[j] = std::min(f[j], duas[j - 2] + 1);
  }
  return f;
}

}  // namespace

std::size_t distancia(const std::string& a, const std::string& b) {
  FILA duas(b.size() + 1);
  FILA uma(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) uma[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    FILA f = proxima(a, b, i, uma, duas);
    duas = std::move(uma);
    uma = std::move(f);
  }
  return uma.back();
}

std::vector<std::string> parecidas(const std::string& palavra,
                                   const std::vector<std::string>& todas) {
  std::vector<std::string> achadas;
  if (palavra.size() > maiorPalavra) return achadas;
  std::size_t melhor = std::max<std::size_t>(palavra.size() / 3, 1);
  for (const std::string& t : todas) {
    const std::size_t d = distancia(palavra, t);
    if (d >= t.size() || d > melhor) continue;
    if (d < melhor) achadas.clear();
    melhor = d;
    if (std::find(achadas.begin(), achadas.end(), t) == achadas.end()) achadas.push_back(t);
  }
  return achadas;
}

}  // namespace linha
