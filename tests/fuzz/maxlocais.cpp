// Lists of detections: whatever was read is read again from what is written of it, and tabulated.

#include "detect/maxlocal.h"

#include <cmath>
#include <stdexcept>

#include "apoio/erros.h"
#include "confere.h"
#include "entrada.h"
#include "memoria.h"
#include "report/relat.h"

namespace {

// Whether `b` is `a` written with an error of at most `passo`; `relativo` is the type's own.
bool perto(double a, double b, double passo, double relativo) {
  if (std::isnan(a)) return std::isnan(b);
  return a == b || std::abs(a - b) <= passo * (1 + 1e-6) + relativo * std::abs(a);
}

bool mesma(const MAXLOCAL& a, const MAXLOCAL& b) {
  return a.forma == b.forma && a.li == b.li && a.ci == b.ci &&
         perto(a.correl, b.correl, 0.5e-6, 1e-7) && perto(a.d1, b.d1, 0.5e-5, 1e-15) &&
         perto(a.d2, b.d2, 0.5e-5, 1e-15) && perto(a.ang, b.ang, 0.5, 1e-15);
}

std::vector<MAXLOCAL> lida(const MEMORIA& arquivo) {
  std::vector<MAXLOCAL> v;
  leMaxLocais(v, arquivo.nome);
  return v;
}

void confereIdaEVolta(const std::vector<MAXLOCAL>& v) {
  const MEMORIA escrito;
  const MEMORIA reescrito;
  impMaxLocais(v, escrito.nome);
  const std::vector<MAXLOCAL> relida = lida(escrito);
  confere(relida.size() == v.size(), "numero de registros");
  for (std::size_t i = 0; i < v.size(); ++i) confere(mesma(v[i], relida[i]), "registro relido");
  impMaxLocais(relida, reescrito.nome);
  confere(escrito.conteudo() == reescrito.conteudo(), "segunda escrita");
}

void confereAreas(const std::vector<MAXLOCAL>& v) {
  TABELAS tabelas;
  if (!erroDe([&] { tabelas = contaAreas(v); }).empty()) return;
  std::size_t contadas = 0;
  std::size_t esperadas = 0;
  for (const auto& [area, n] : tabelas.circulos) contadas += static_cast<std::size_t>(n);
  for (const auto& [area, n] : tabelas.retangulos) contadas += static_cast<std::size_t>(n);
  for (const MAXLOCAL& m : v) {
    if (m.forma == 'c' || m.forma == 'q' || m.forma == 'r') ++esperadas;
  }
  confere(contadas == esperadas, "formas nas tabelas");
  const MEMORIA tabela;
  impTabelas(tabelas, tabela.nome);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t n) {
  const MEMORIA arquivo(comoTexto(bytes, n));
  std::vector<MAXLOCAL> v;
  try {
    if (!erroDe([&] { v = lida(arquivo); }).empty()) return 0;
  } catch (const std::length_error&) {  // a count that can't be
    return 0;
  }
  confereIdaEVolta(v);
  confereAreas(v);
  return 0;
}
