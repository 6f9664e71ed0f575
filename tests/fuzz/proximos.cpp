// Sorting and removal of near duplicates against their plain forms, to the last bit.

#include <bit>
#include <limits>

#include "apoio/erros.h"
#include "confere.h"
#include "detect/ordenacao.h"
#include "entrada.h"
#include "referencia/proximos.h"

namespace {

using LISTA = std::vector<MAXLOCAL>;

// Few values, so that ties are common; any letter.
MAXLOCAL deteccao(ENTRADA& e) {
  MAXLOCAL m;
  const int valor = e.byte();
  m.correl = static_cast<float>(valor % 16) / 16;
  if (valor == 255) m.correl = std::numeric_limits<float>::quiet_NaN();
  if (valor == 254) m.correl = -std::numeric_limits<float>::infinity();
  const int letra = e.byte();
  m.forma = letra < 200 ? "cqre"[letra % 4] : static_cast<char>(letra - 128);
  const bool perto = e.byte() < 230;
  m.li = perto ? e.inteiro(-3, 28) : e.qualquerInteiro();
  m.ci = perto ? e.inteiro(-3, 28) : e.qualquerInteiro();
  return m;
}

bool iguais(const LISTA& a, const LISTA& b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    const bool mesmo =
        std::bit_cast<std::uint32_t>(a[i].correl) == std::bit_cast<std::uint32_t>(b[i].correl) &&
        a[i].forma == b[i].forma && a[i].li == b[i].li && a[i].ci == b[i].ci && a[i].d1 == b[i].d1;
    if (!mesmo) return false;
  }
  return true;
}

// Carries out both forms; an assertion must fail in both or in none.
template <class RAPIDA, class SIMPLES>
void confereAmbas(RAPIDA rapida, SIMPLES simples, const char* texto) {
  const auto falha = [](auto acao) -> std::string {
    try {
      acao();
      return "";
    } catch (const pim::ASSERCAO& a) {
      return a.expressao;
    }
  };
  const std::string daRapida = falha(rapida);
  confere(daRapida == falha(simples), texto);
  confere(daRapida.empty() || daRapida == "l<=r", "outra afirmacao");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t n) {
  ENTRADA e{bytes, n};
  const int maxDist = e.byte() < 200 ? e.inteiro(-1, 9) : e.qualquerInteiro();
  const bool ordenada = e.byte() % 2 == 0;
  LISTA lista;
  while (e.restam > 0 && lista.size() < 200) {
    lista.push_back(deteccao(e));
    lista.back().d1 = static_cast<double>(lista.size());  // tells equal records apart
  }
  LISTA rapida = lista;
  LISTA simples = lista;
  const int quantos = static_cast<int>(lista.size());
  const int l = quantos > 0 ? bytes[0] % quantos : 0;
  const int r = quantos > 0 ? l + bytes[n - 1] % (quantos - l) : -1;
  confereAmbas([&] { ordena(rapida, l, r); }, [&] { referencia::ordena(simples, l, r); }, "ordena");
  confere(iguais(rapida, simples), "ordem");

  const LISTA& entrada = ordenada ? rapida : lista;
  LISTA mantidos;
  LISTA mantidosSimples;
  confereAmbas([&] { eliminaProximo(entrada, mantidos, maxDist); },
               [&] { referencia::eliminaProximo(entrada, mantidosSimples, maxDist); }, "elimina");
  confere(iguais(mantidos, mantidosSimples), "mantidos");
  return 0;
}
