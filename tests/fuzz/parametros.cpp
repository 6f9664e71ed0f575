// The thresholds of filtra: any arguments, against a plain reading of the same words.

#include <algorithm>
#include <map>

#include "confere.h"
#include "entrada.h"
#include "erro_lanca.h"
#include "filter/filtra.h"
#include "pim/texto.h"
#include "simples.h"

namespace {

struct PAR {
  double minCorr = -1;
  double maxInter = -1;
};

// By the first letter of the shape, 'd' for the default; false when the words are no parameters.
bool leSimples(const std::vector<std::string>& tokens, std::map<char, PAR>& pares) {
  constexpr const char* nomes[] = {"default", "circulo", "retangulo", "quadrado", "elipse"};
  pares = {{'d', {0.1, 0.3}}, {'c', {}}, {'r', {}}, {'q', {}}, {'e', {}}};
  for (std::size_t i = 0; i < tokens.size(); i += 3) {
    const std::string palavra = pim::minuscula(tokens[i]);
    if (palavra == "eof") break;
    PAR par;
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

bool igual(const PAR& par, double minCorr, double maxInter) {
  return igual(par.minCorr, minCorr) && igual(par.maxInter, maxInter);
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
  std::map<char, PAR> esperado;
  const bool serve = leSimples(tokensSimples(s.texto), esperado);
  PARAMFILTRA p;
  const std::string erro = erroDe([&] { p = leParametros(s); });
  confere(erro.empty() == serve, "parametros aceitos: " + erro);
  if (!serve) return 0;
  confere(igual(esperado['d'], p.minCorrDef, p.maxInterDef), "default");
  confere(igual(esperado['c'], p.minCorrCir, p.maxInterCir), "circulo");
  confere(igual(esperado['r'], p.minCorrRet, p.maxInterRet), "retangulo");
  confere(igual(esperado['q'], p.minCorrQua, p.maxInterQua), "quadrado");
  confere(igual(esperado['e'], p.minCorrEli, p.maxInterEli), "elipse");
  return 0;
}
