// Files of provenance: any bytes. What is taken is written and read back as the same.

#include "batch/proveniencia/proveniencia.h"

#include "apoio/erros.h"
#include "confere.h"
#include "entrada.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t n) {
  const std::string texto(comoTexto(bytes, n));
  batch::PROVENIENCIA p;
  const std::string erro = erroDe([&] { p = batch::leProveniencia(texto); });
  if (!erro.empty()) {
    confere(erro.rfind("Erro: Proveniencia invalida: ", 0) == 0, "outro erro: " + erro);
    return 0;
  }
  const std::string escrita = emJson(p, true);
  const batch::PROVENIENCIA lida = batch::leProveniencia(escrita);
  confere(emJson(lida, true) == escrita, "escrita e lida");
  confere(diferencas(p, lida).empty(), "difere de si mesma");
  return 0;
}
