#include "sugere/recado.h"

#include <array>
#include <charconv>
#include <cmath>
#include <sstream>

#include "pim/erro.h"
#include "pim/texto.h"

namespace sugere {
namespace {

constexpr std::string_view prefixo = "// vorplex-lote:";

// The fewest digits that read back as the same number.
std::string maisCurto(double x) {
  std::array<char, 32> texto{};
  const std::to_chars_result fim = std::to_chars(texto.data(), texto.data() + texto.size(), x);
  return {texto.data(), fim.ptr};
}

}  // namespace

std::string linhaDoRecado(const RECADO& r) {
  std::string s(prefixo);
  if (r.inverte) s += " -i";
  if (r.minCorr) s += " -c " + maisCurto(*r.minCorr);
  return s;
}

RECADO leRecado(std::string_view texto, const std::string& nome) {
  std::istringstream linhas{std::string(texto)};
  std::string linha;
  for (int numero = 1; std::getline(linhas, linha); ++numero) {
    if (!linha.starts_with(prefixo)) continue;
    RECADO r;
    std::istringstream palavras(linha.substr(prefixo.size()));
    for (std::string p; palavras >> p;) {
      double x = 0;
      if (p == "-i") {
        r.inverte = true;
      } else if (p == "-c" && palavras >> p && pim::paraNumero(p, x) && std::isfinite(x)) {
        r.minCorr = x;
      } else {
        pim::erro("Erro: Palavra desconhecida ", pim::comeco(pim::semControles(p)),
                  " (" + nome + ", linha " + std::to_string(numero) + ")");
      }
    }
    return r;
  }
  return {};
}

}  // namespace sugere
