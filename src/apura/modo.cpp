#include "apura/modo.h"

#include <cmath>

#include "apura/frases.h"
#include "pim/texto.h"

namespace apura {
namespace {

bool leFamilias(const std::string& texto, std::string& letras) {
  letras = texto;
  return !texto.empty() && texto.find_first_not_of("cqre") == std::string::npos;
}

// "MIN-MAX". A number may hold a dash too, as in 1e-3, so every dash is tried.
bool leTamanhos(const std::string& texto, refine::MODO_DE_APURAR& m) {
  for (std::size_t i = texto.find('-'); i != std::string::npos; i = texto.find('-', i + 1)) {
    double menor = 0;
    double maior = 0;
    const bool dois =
        pim::paraNumero(texto.substr(0, i), menor) && pim::paraNumero(texto.substr(i + 1), maior);
    if (!dois || !(menor >= 0) || !(menor < maior) || !std::isfinite(maior)) continue;
    m.menor = menor;
    m.maior = maior;
    return true;
  }
  return false;
}

bool leParte(const std::string& texto, double& x) {
  return pim::paraNumero(texto, x) && x >= 0 && x <= 1;
}

}  // namespace

const exporta::FRASE* guardaModo(int letra, const std::string& valor, refine::MODO_DE_APURAR& m) {
  switch (letra) {
    case familias:
      return leFamilias(valor, m.familias) ? nullptr : &falas::familiasRuins;
    case tamanhos:
      return leTamanhos(valor, m) ? nullptr : &falas::tamanhosRuins;
    case sobreposicao:
      return leParte(valor, m.sobreposicao) ? nullptr : &falas::sobreposicaoRuim;
    case sensibilidade:
      return leParte(valor, m.sensibilidade) ? nullptr : &falas::sensibilidadeRuim;
    default:
      m.semLetras = true;
      return nullptr;
  }
}

}  // namespace apura
