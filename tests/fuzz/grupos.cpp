// Tables of groups: any bytes as the table of two photographs.

#include "batch/grupos/grupos.h"
#include "apoio/erros.h"
#include "batch/grupos/csv.h"
#include "confere.h"
#include "entrada.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t n) {
  const std::string texto(comoTexto(bytes, n));
  const std::string erro = erroDe([&] {
    for (const batch::LINHA_DE_CSV& l : batch::leCsv(texto))
      confere(!l.campos.empty(), "sem campos");
  });
  std::vector<batch::ALVO> alvos = {{"/p/norte/a.png", "a"}, {"/p/sul/b.png", "b"}};
  measure::ESCALA escala;
  const std::string outro = erroDe([&] { batch::agrupaPorTabela(alvos, texto, escala); });
  confere(erro.empty() || outro == erro, "lida de um jeito e recusada de outro: " + outro);
  if (!outro.empty()) return 0;
  for (const batch::ALVO& a : alvos) {
    if (a.escala) confere(a.escala->lado > 0 && a.escala->unidade == escala.unidade, "escala");
  }
  return 0;
}
