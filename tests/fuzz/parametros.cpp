// The thresholds of filtra: any arguments, against a plain reading of the same words.

#include <algorithm>
#include <map>

#include "apoio/erros.h"
#include "confere.h"
#include "entrada.h"
#include "filter/filtra.h"
#include "pim/texto.h"
#include "simples.h"

namespace {

constexpr LIMIAR semValor = {-1, -1};

// By the first letter of the shape, 'd' for the default; false when the words are no parameters.
bool leSimples(const std::vector<std::string>& tokens, std::map<char, LIMIAR>& pares) {
  constexpr const char* nomes[] = {"default", "circulo", "retangulo", "quadrado", "elipse"};
  pares = {{'d', {0.1, 0.3}}, {'c', semValor}, {'r', semValor}, {'q', semValor}, {'e', semValor}};
  for (std::size_t i = 0; i < tokens.size(); i += 3) {
    const std::string palavra = pim::minuscula(tokens[i]);
    if (palavra == "eof") break;
    LIMIAR par;
    const bool conhecida =
        std::find(std::begin(nomes), std::end(nomes), palavra) != std::end(nomes);
    if (!conhecida || i + 2 >= tokens.size() || !pim::paraNumero(tokens[i + 1], par.minCorr) ||
        !pim::paraNumero(tokens[i + 2], par.maxInter)) {
      return false;
    }
    for (auto& [letra, limiar] : pares) {
      if (letra == palavra[0] || palavra[0] == 'd') limiar = par;
    }
  }
  for (auto& [letra, limiar] : pares) {
    if (limiar.minCorr < 0) limiar.minCorr = pares['d'].minCorr;
    if (limiar.maxInter < 0) limiar.maxInter = pares['d'].maxInter;
  }
  return true;
}

bool igual(double a, double b) {
  return a == b || (a != a && b != b);
}

bool igual(const LIMIAR& a, const LIMIAR& b) {
  return igual(a.minCorr, b.minCorr) && igual(a.maxInter, b.maxInter);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t n) {
  // A zero byte ends an argument, as it does on a command line.
  std::string texto(comoTexto(bytes, n));
  std::vector<char*> argv = {texto.data()};
  for (std::size_t i = 0; i < n; ++i) {
    if (texto[i] == '\0') argv.push_back(texto.data() + i + 1);
  }
  pim::ISTR s;
  s.arg2str(static_cast<int>(argv.size()), argv.data());
  std::map<char, LIMIAR> esperado;
  const bool serve = leSimples(tokensSimples(s.texto), esperado);
  LIMIARES p;
  const std::string erro = erroDe([&] { p = leParametros(s); });
  confere(erro.empty() == serve, "parametros aceitos: " + erro);
  if (!serve) return 0;
  confere(igual(esperado['c'], p.circulo), "circulo");
  confere(igual(esperado['r'], p.retangulo), "retangulo");
  confere(igual(esperado['q'], p.quadrado), "quadrado");
  confere(igual(esperado['e'], p.elipse), "elipse");
  return 0;
}
