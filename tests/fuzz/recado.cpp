// What a kernel.cfg says to vorplex-lote: any text ends in an error or gives values that read back
// the same from the line that is written of them.

#include "sugere/recado.h"

#include <cmath>

#include "apoio/erros.h"
#include "confere.h"
#include "entrada.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t n) {
  sugere::RECADO lido;
  const std::string erro = erroDe([&] { lido = sugere::leRecado(comoTexto(bytes, n), "k"); });
  if (!erro.empty()) {
    confere(erro.starts_with("Erro: Palavra desconhecida "), erro);
    return 0;
  }
  confere(!lido.minCorr || std::isfinite(*lido.minCorr), "numero finito");
  const sugere::RECADO deVolta = sugere::leRecado(sugere::linhaDoRecado(lido), "k");
  confere(deVolta.inverte == lido.inverte && deVolta.minCorr == lido.minCorr, "ida e volta");
  return 0;
}
