#include "apoio/guardado.h"

#include <algorithm>
#include <vector>

namespace {

// Each line with its end, which tells a last one without.
std::vector<std::string> linhasDe(const std::string& texto) {
  std::vector<std::string> linhas;
  for (std::size_t de = 0; de < texto.size();) {
    const std::size_t fim = std::min(texto.find('\n', de), texto.size() - 1);
    linhas.push_back(texto.substr(de, fim + 1 - de));
    de = fim + 1;
  }
  return linhas;
}

std::string trecho(const std::vector<std::string>& linhas, std::size_t de, char sinal) {
  std::string texto;
  const std::size_t ate = std::min(de + maximoDeDiferencas, linhas.size());
  for (std::size_t i = de; i < ate; ++i) {
    texto += sinal + linhas[i];
    if (!texto.ends_with('\n')) texto += " (no line end)\n";
  }
  if (ate == linhas.size()) texto += sinal + std::string("(end)\n");
  return texto;
}

}  // namespace

std::string diferencaDeLinhas(const std::string& obtido, const std::string& guardado) {
  if (obtido == guardado) return {};
  const std::vector<std::string> a = linhasDe(guardado);
  const std::vector<std::string> b = linhasDe(obtido);
  const auto [i, j] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
  const auto igual = static_cast<std::size_t>(i - a.begin());
  return "from line " + std::to_string(igual + 1) + ", - stored, + obtained\n" +
         trecho(a, igual, '-') + trecho(b, igual, '+');
}
