// The token readers: a file, a parameter stream and the plain form see the same tokens and numbers.

#include "apoio/erros.h"
#include "pim/token.h"

#include <bit>

#include "confere.h"
#include "entrada.h"
#include "pim/arquivo.h"
#include "pim/texto.h"
#include "simples.h"

namespace {

// What the next token is, as the plain form has it.
std::string proximo(const std::vector<std::string>& tokens, std::size_t i) {
  return i < tokens.size() ? tokens[i] : "eof";
}

void confereNumero(std::FILE* f, pim::ISTR& s, const std::string& token) {
  double esperado = 0;
  double doArquivo = 0;
  double daMemoria = 0;
  const bool serve = pim::paraNumero(token, esperado);
  const std::string erroArquivo = erroDe([&] { pim::leNum(f, doArquivo); });
  const std::string erroMemoria = erroDe([&] { pim::leNum(s, daMemoria); });
  confere(erroArquivo.empty() == serve && erroMemoria.empty() == serve, "numero aceito por um so");
  confere(std::bit_cast<std::uint64_t>(doArquivo) == std::bit_cast<std::uint64_t>(esperado) &&
              std::bit_cast<std::uint64_t>(daMemoria) == std::bit_cast<std::uint64_t>(esperado),
          "numeros diferentes");
}

// A whole number is the same number as a real one, and is read as it is written.
void confereInteiro(const std::string& token) {
  int inteiro = 0;
  double real = 0;
  if (!pim::paraNumero(token, inteiro)) return;
  confere(pim::paraNumero(token, real) && real == inteiro, "inteiro que nao e' real");
  int relido = inteiro + (inteiro > 0 ? -1 : 1);
  confere(pim::paraNumero(std::to_string(inteiro), relido) && relido == inteiro, "inteiro relido");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t n) {
  if (n == 0) return -1;
  const unsigned escolhas = bytes[0];  // for each place, modulo 8: number or text
  std::string texto(comoTexto(bytes + 1, n - 1));
  const std::vector<std::string> tokens = tokensSimples(semMarca(texto));
  pim::ISTR s{std::string(semMarca(texto))};
  const pim::ARQUIVO f(fmemopen(texto.data(), texto.size(), "r"));
  confere(f != nullptr, "fmemopen");
  for (std::size_t i = 0; i < tokens.size() + 2; ++i) {
    const std::string token = proximo(tokens, i);
    confereInteiro(token);
    if ((escolhas >> i % 8 & 1U) != 0) {
      confereNumero(f.get(), s, token);
      continue;
    }
    confere(pim::leStr(f.get()) == token, "token do arquivo");
    confere(pim::leStr(s) == token, "token da memoria");
  }
  return 0;
}
